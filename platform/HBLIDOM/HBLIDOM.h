#pragma once

#include "HBLIDOM/DomStreamWriter.h"
#include "HBLIDOM/DomWriter.h"
#include "HBLIDOM/HBLIDOM_Attr.h"
#include "HBLIDOM/HBLIDOM_DOMException.h"
#include "HBLIDOM/HBLIDOM_DOMImplementation.h"
#include "HBLIDOM/HBLIDOM_Document.h"
#include "HBLIDOM/HBLIDOM_Element.h"
#include "HBLIDOM/HBLIDOM_Helper.h"
#include "HBLIDOM/HBLIDOM_NamedNodeMap.h"
#include "HBLIDOM/HBLIDOM_Node.h"
#include "HBLIDOM/HBLIDOM_NodeList.h"
#include "HBLIDOM/HBLIDOM_Parser.h"
#include "HBLIDOM/HBLIDOM_TreeWalker.h"

/// All of the library, and the short names of its classes.
namespace HBLIDOM {

using Attr = HBLIDOM_Attr;
using DOMException = HBLIDOM_DOMException;
using DOMImplementation = HBLIDOM_DOMImplementation;
using Document = HBLIDOM_Document;
using Element = HBLIDOM_Element;
using Helper = HBLIDOM_Helper;
using NamedNodeMap = HBLIDOM_NamedNodeMap;
using Node = HBLIDOM_Node;
using NodeList = HBLIDOM_NodeList;
using Parser = HBLIDOM_Parser;
using TreeWalker = HBLIDOM_TreeWalker;

} // namespace HBLIDOM
