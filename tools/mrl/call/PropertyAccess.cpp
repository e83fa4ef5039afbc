#include "call/PropertyAccess.h"

#include "Session/MRLProperty.h"

#include <string>

namespace mrl::detail {

/// Reaches what the store keeps for its friends.
struct PropertyAccess {
    static void setNumber(const char* property, unsigned value) {
        // The store is constant for its readers; nobody else reads it yet.
        const_cast<MRLProperty&>(MRLProperty::getInstance())
            .setValue(property, I18NString(std::to_string(value).c_str()), 1);
    }
};

} // namespace mrl::detail

namespace mrl::tool {

void setRetries(unsigned retries) {
    mrl::detail::PropertyAccess::setNumber("NumberOfRequestRetries", retries);
}

} // namespace mrl::tool
