#pragma once

#include <string>
#include <string_view>

namespace mrl::detail {

/// Appends `text` as the content of an XML element or a quoted attribute value. Control characters,
/// which XML cannot carry, become U+FFFD.
void appendXmlText(std::string& out, std::string_view text);

} // namespace mrl::detail
