#pragma once

#include "HBLIDOM/HBLIDOM_Node.h"

#include <cstddef>

/// The attributes of an element, as they are at each question. Their order is that of their names.
/// A null map, which nodes other than elements have, is empty.
class MRL_EXPORT HBLIDOM_NamedNodeMap {
public:
    HBLIDOM_NamedNodeMap() = default;

    int isNull() const noexcept { return m_element.isNull(); }
    std::size_t getLength() const;
    /// Null beyond the end.
    HBLIDOM_Node item(std::size_t index) const;

private:
    friend struct mrl::detail::DomAccess;

    HBLIDOM_Node m_element;
};
