#pragma once

#include "HBLIDOM/HBLIDOM_Node.h"

#include <cstddef>
#include <vector>

/// The children that a node had when it was asked; later changes of the document do not show.
class MRL_EXPORT HBLIDOM_NodeList {
public:
    HBLIDOM_NodeList() = default;

    std::size_t getLength() const noexcept { return m_nodes == nullptr ? 0 : m_nodes->size(); }
    /// Null beyond the end.
    HBLIDOM_Node item(std::size_t index) const;

private:
    friend struct mrl::detail::DomAccess;

    std::shared_ptr<mrl::detail::DomTree> m_tree;
    std::shared_ptr<const std::vector<xercesc::DOMNode*>> m_nodes; // borrowed from m_tree
};
