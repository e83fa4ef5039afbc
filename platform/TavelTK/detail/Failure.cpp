#include "TavelTK/detail/Failure.h"

#include <algorithm>

namespace mrl::detail {

void fail(TavelTKError error, TavelTKPhase phase, std::string_view peer, std::string_view cause,
          const HBLFileLocation& where) {
    TavelTKException(error, phase, peer, cause).hurl(where, nullptr, "HBL_THROW");
}

std::string printable(std::string_view text, std::size_t limit) {
    std::string shown(text.substr(0, limit));
    std::ranges::replace_if(
        shown, [](unsigned char c) { return c < ' ' || c > '~'; }, '.');
    if (text.size() > limit)
        shown += "...";
    return shown;
}

} // namespace mrl::detail
