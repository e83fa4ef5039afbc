#pragma once

#include "traffic/PathRules.h"

#include "HBLIDOM/HBLIDOM_Node.h"

#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

/// An XML document as lines that are equal for documents that mean the same: an element with nothing but text
/// on one line, prefixes by namespace and not by choice (in the values of xsi:type and arrayType too),
/// attributes by name, no declarations, comments, or white space between elements.
/// @param volatilePlaces whose values are left out; null for none.
std::vector<std::string> canonicalLines(const HBLIDOM_Node& document, const PathRules* volatilePlaces);

/// A text from a recording for a terminal: what could move its cursor is written as \x1b.
std::string printable(std::string_view text);

} // namespace mrl::tool
