#pragma once

#include "HBLIDOM/HBLIDOM_Node.h"

/// An attribute of an element, a namespace declaration among them.
class MRL_EXPORT HBLIDOM_Attr : public HBLIDOM_Node {
public:
    HBLIDOM_Attr() = default;
    /// The attribute that `node` is, null for null.
    /// @throws HBLIDOM_DOMException when it is something else.
    explicit HBLIDOM_Attr(const HBLIDOM_Node& node);

    /// With the prefix.
    I18NString getName() const { return getNodeName(); }
    I18NString getValue() const { return getNodeValue(); }
};
