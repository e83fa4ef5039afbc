#include "I18NRes/zt5omsymbols1.h"
#include "count/Counting.h"
#include "count/Figures.h"
#include "data/CatalogueData.h"

#include "HBLCore/HBLAssertError.h"
#include "HBLCore/HBLUtCrc32.h"

#include <algorithm>
#include <strings.h>

namespace mrl::tool {

namespace {

/// Two texts of one number would both be looked for at one place, so one of them is not found.
bool isSymbol(const char* text) {
    try {
        return std::string_view(zt5omsymbols1::getChar(HBLUtCrc32::crc32(text, 0))) == text;
    } catch (const HBLAssertError&) {
        return false;
    }
}

bool isUri(std::string_view text) {
    return text.find("://") != std::string_view::npos;
}

} // namespace

void countSymbols(Figures& figures) {
    std::vector<const char*> found;
    std::ranges::copy_if(symbols(), std::back_inserter(found), isSymbol);
    const auto uris = std::ranges::stable_partition(found, [](const char* text) { return !isUri(text); });
    const std::span plain(found.begin(), uris.begin());
    const auto [first, last] =
        std::ranges::minmax_element(plain, [](const char* a, const char* b) { return strcasecmp(a, b) < 0; });

    figures.add("symbols", found.size());
    figures.add("uriSymbols", uris.size());
    figures.add("firstSymbol", plain.empty() ? "" : *first);
    figures.add("lastPlainSymbol", plain.empty() ? "" : *last);
}

} // namespace mrl::tool
