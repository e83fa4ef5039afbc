#pragma once

#include "HBLCore/HBLFailure.h"
#include "HBLIDOM/HBLIDOM_Document.h"
#include "HBLIDOM/HBLIDOM_NamedNodeMap.h"
#include "HBLIDOM/HBLIDOM_NodeList.h"
#include "HBLIDOM/detail/DomTree.h"
#include "HBLIDOM/detail/XmlLibrary.h"

#include <xercesc/dom/DOMException.hpp>
#include <xercesc/dom/DOMNode.hpp>

#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace mrl::detail {

/// The way from handles to nodes and back, for the library itself.
struct DomAccess {
    /// Null for a null handle.
    static xercesc::DOMNode* nodeOf(const HBLIDOM_Node& handle) { return handle.m_node; }

    /// @throws HBLIDOM_DOMException for a null handle.
    static xercesc::DOMNode& required(const HBLIDOM_Node& handle, const char* operation);

    template <class T>
    static T& requiredAs(const HBLIDOM_Node& handle, const char* operation) {
        return static_cast<T&>(required(handle, operation));
    }

    /// A handle to a node of the document that `beside` is of; null for null.
    static HBLIDOM_Node handle(const HBLIDOM_Node& beside, xercesc::DOMNode* node) {
        return node == nullptr ? HBLIDOM_Node() : item(beside.m_tree, node);
    }

    static HBLIDOM_Node item(const std::shared_ptr<DomTree>& tree, xercesc::DOMNode* node) {
        HBLIDOM_Node made;
        made.m_tree = tree;
        made.m_node = node;
        return made;
    }

    /// @throws HBLIDOM_DOMException when the node, if there is one, is not of `type`.
    static void requireType(const HBLIDOM_Node& handle, HBLIDOM_Node::NodeType type, const char* operation,
                            const char* what);

    /// Takes the document.
    static HBLIDOM_Document adopt(xercesc::DOMDocument* document);

    static HBLIDOM_NodeList children(const HBLIDOM_Node& parent, const char* operation);
    /// The nodes below `root`, itself left out, that `fits` takes.
    template <class Fits>
    static HBLIDOM_NodeList below(const HBLIDOM_Node& root, const char* operation, const Fits& fits);
    static HBLIDOM_NamedNodeMap attributes(const HBLIDOM_Node& node, const char* operation);
};

/// Throws the exception of the library for a failure of `operation` on `node`, which may be null.
[[noreturn]] void throwDomFailure(int code, const char* operation, const xercesc::DOMNode* node,
                                  const std::string& cause);
[[noreturn]] void throwDomFailure(const xercesc::DOMException& failure, const char* operation,
                                  const xercesc::DOMNode* node, const I18NString* name);

/// Runs `step`, which changes `node`; its failures become ours.
/// @param name what was given as a name, for the message; null for none.
template <class Step>
auto changing(const char* operation, const xercesc::DOMNode* node, const I18NString* name, Step&& step) {
    try {
        return std::forward<Step>(step)();
    } catch (const xercesc::DOMException& failure) {
        throwDomFailure(failure, operation, node, name);
    } catch (...) {
        xmlRethrowCurrent(operation, HBL_HERE);
    }
}

/// The text of a node, never null.
inline std::u16string_view viewed(const XMLCh* text) {
    return text == nullptr ? std::u16string_view() : std::u16string_view(text);
}

/// For the XML library, which has null for no namespace.
inline const XMLCh* namespaceOrNull(const I18NString& uri) {
    return uri.empty() ? nullptr : uri.getExternalBuffer();
}

/// What follows `node` in the order of the document below `root`: its first child, else what follows
/// behind it; null at the end.
inline xercesc::DOMNode* nextBelow(xercesc::DOMNode* node, const xercesc::DOMNode* root) {
    if (xercesc::DOMNode* const child = node->getFirstChild()) {
        return child;
    }
    for (; node != root; node = node->getParentNode()) {
        if (xercesc::DOMNode* const sibling = node->getNextSibling()) {
            return sibling;
        }
    }
    return nullptr;
}

template <class Fits>
HBLIDOM_NodeList DomAccess::below(const HBLIDOM_Node& root, const char* operation, const Fits& fits) {
    auto nodes = std::make_shared<std::vector<xercesc::DOMNode*>>();
    xercesc::DOMNode& top = required(root, operation);
    for (auto* node = nextBelow(&top, &top); node != nullptr; node = nextBelow(node, &top)) {
        if (fits(*node)) {
            nodes->push_back(node);
        }
    }
    HBLIDOM_NodeList list;
    list.m_tree = root.m_tree;
    list.m_nodes = std::move(nodes);
    return list;
}

} // namespace mrl::detail
