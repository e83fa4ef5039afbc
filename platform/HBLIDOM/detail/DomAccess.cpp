#include "HBLIDOM/detail/DomAccess.h"

#include "HBLCore/HBLFailure.h"
#include "HBLIDOM/HBLIDOM_DOMException.h"

#include <string>

namespace mrl::detail {

namespace {

std::string placeOf(const xercesc::DOMNode* node) {
    if (node == nullptr) {
        return "a null node";
    }
    const std::string name = I18NString(node->getNodeName()).toUtf8();
    switch (node->getNodeType()) {
    case xercesc::DOMNode::ELEMENT_NODE: return "the element \"" + name + "\"";
    case xercesc::DOMNode::ATTRIBUTE_NODE: return "the attribute \"" + name + "\"";
    case xercesc::DOMNode::DOCUMENT_NODE: return "the document";
    default: return "a node " + name;
    }
}

} // namespace

xercesc::DOMNode& DomAccess::required(const HBLIDOM_Node& handle, const char* operation) {
    if (handle.m_node == nullptr) {
        throwDomFailure(HBLIDOM_DOMException::INVALID_ACCESS_ERR, operation, nullptr,
                        "there is no node behind this handle");
    }
    return *handle.m_node;
}

void DomAccess::requireType(const HBLIDOM_Node& handle, HBLIDOM_Node::NodeType type, const char* operation,
                            const char* what) {
    const xercesc::DOMNode* const node = handle.m_node;
    if (node != nullptr && static_cast<HBLIDOM_Node::NodeType>(node->getNodeType()) != type) {
        throwDomFailure(HBLIDOM_DOMException::INVALID_ACCESS_ERR, operation, node,
                        std::string("it is not ") + what);
    }
}

HBLIDOM_Document DomAccess::adopt(xercesc::DOMDocument* document) {
    struct Release {
        void operator()(xercesc::DOMDocument* held) const { held->release(); }
    };
    std::unique_ptr<xercesc::DOMDocument, Release> held(document);
    auto* const tree = hblNew<DomTree>(HBL_HERE, document);
    static_cast<void>(held.release()); // the tree's from here on
    HBLIDOM_Document made;
    made.m_tree.reset(tree);
    made.m_node = document;
    return made;
}

HBLIDOM_NodeList DomAccess::children(const HBLIDOM_Node& parent, const char* operation) {
    auto nodes = std::make_shared<std::vector<xercesc::DOMNode*>>();
    for (auto* child = required(parent, operation).getFirstChild(); child != nullptr;
         child = child->getNextSibling()) {
        nodes->push_back(child);
    }
    HBLIDOM_NodeList list;
    list.m_tree = parent.m_tree;
    list.m_nodes = std::move(nodes);
    return list;
}

HBLIDOM_NamedNodeMap DomAccess::attributes(const HBLIDOM_Node& node, const char* operation) {
    HBLIDOM_NamedNodeMap map;
    if (required(node, operation).getNodeType() == xercesc::DOMNode::ELEMENT_NODE) {
        map.m_element = node;
    }
    return map;
}

void throwDomFailure(int code, const char* operation, const xercesc::DOMNode* node,
                     const std::string& cause) {
    HBL_THROW(HBLIDOM_DOMException(code, operation, placeOf(node), cause), operation);
}

void throwDomFailure(const xercesc::DOMException& failure, const char* operation,
                     const xercesc::DOMNode* node, const I18NString* name) {
    std::string cause = I18NString(failure.getMessage()).toUtf8();
    if (name != nullptr) {
        cause += (cause.empty() ? "\"" : ": \"") + name->toUtf8() + "\"";
    }
    throwDomFailure(failure.code, operation, node, cause);
}

} // namespace mrl::detail
