#pragma once

#include <xercesc/dom/DOMNode.hpp>

namespace mrl::detail {

/// A place in a file, from 1 on; 0 for none.
struct DomPlace {
    int line = 0;
    int column = 0;
};

/// Keeps the place with the node. A copy of the node has none.
void setPlace(xercesc::DOMNode& node, int line, int column);
DomPlace placeOf(const xercesc::DOMNode& node);

} // namespace mrl::detail
