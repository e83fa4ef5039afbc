#include "HBLIDOM/HBLIDOM_TreeWalker.h"

HBLIDOM_Node HBLIDOM_TreeWalker::firstChild() {
    return moveToFirstShown(m_current.getFirstChild());
}

HBLIDOM_Node HBLIDOM_TreeWalker::nextSibling() {
    return m_current == m_root ? HBLIDOM_Node() : moveToFirstShown(m_current.getNextSibling());
}

HBLIDOM_Node HBLIDOM_TreeWalker::parentNode() {
    if (m_current == m_root) {
        return {};
    }
    HBLIDOM_Node parent = m_current.getParentNode();
    if (parent.isNull() != 0 || !isShown(parent)) {
        return {};
    }
    m_current = parent;
    return parent;
}

HBLIDOM_Node HBLIDOM_TreeWalker::moveToFirstShown(HBLIDOM_Node from) {
    while (from.isNull() == 0 && !isShown(from)) {
        from = from.getNextSibling();
    }
    if (from.isNull() == 0) {
        m_current = from;
    }
    return from;
}

bool HBLIDOM_TreeWalker::isShown(const HBLIDOM_Node& node) const {
    return (m_whatToShow >> (node.getNodeType() - 1) & 1U) != 0;
}
