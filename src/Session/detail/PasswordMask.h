#pragma once

class I18NString;

namespace mrl::detail {

/// Puts "*" in place of the first password of a request, the content of the first element that has "password"
/// as its name or in it. It is looked for as clear text from the start of the request, so an earlier, equal
/// text is the one that goes; where it cannot be found, because it is written with entities, its place is
/// masked instead.
void maskPassword(I18NString& request);

} // namespace mrl::detail
