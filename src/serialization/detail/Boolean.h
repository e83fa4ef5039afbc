#pragma once

#include "serialization/detail/Throw.h"

#include <string_view>

namespace mrl::detail {

/// The value of a boolean as it stands in an envelope or an attachment.
/// @param name the element, for the failure.
/// @throws MRLException for any other text.
inline int toBoolean(std::string_view text, const char* name) {
    if (text == "true" || text == "TRUE" || text == "1") {
        return 1;
    }
    if (text == "false" || text == "FALSE" || text == "0") {
        return 0;
    }
    throwFailure(HBL_HERE, "MRLSchemaTypeIContentHandler::characters", msg::invalidNumber, name, "boolean");
}

} // namespace mrl::detail
