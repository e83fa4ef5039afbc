#pragma once

#include "HBLIDOM/HBLIDOM_Node.h"

#include <cstdint>

/// Moves over a document and sees some kinds of nodes only. What it does not see it passes over, with
/// all below it. It never leaves its root.
class MRL_EXPORT HBLIDOM_TreeWalker {
public:
    static constexpr std::uint32_t SHOW_ALL = 0xFFFFFFFF;
    static constexpr std::uint32_t SHOW_ELEMENT = 1U << (HBLIDOM_Node::ELEMENT_NODE - 1);
    static constexpr std::uint32_t SHOW_TEXT = 1U << (HBLIDOM_Node::TEXT_NODE - 1);

    /// Stands at `root`.
    /// @param whatToShow one or more of the above.
    explicit HBLIDOM_TreeWalker(const HBLIDOM_Node& root, std::uint32_t whatToShow = SHOW_ELEMENT)
        : m_root(root)
        , m_current(root)
        , m_whatToShow(whatToShow) {}

    const HBLIDOM_Node& getRoot() const { return m_root; }
    const HBLIDOM_Node& getCurrentNode() const { return m_current; }

    // Each moves there and gives the node; where there is none, gives null and stays.
    HBLIDOM_Node firstChild();
    HBLIDOM_Node nextSibling();
    HBLIDOM_Node parentNode();

private:
    HBLIDOM_Node moveToFirstShown(HBLIDOM_Node from);
    bool isShown(const HBLIDOM_Node& node) const;

    HBLIDOM_Node m_root;
    HBLIDOM_Node m_current;
    std::uint32_t m_whatToShow;
};
