#include "I18NRes/zt5omsymbols1.h"
#include "count/Counting.h"
#include "count/Figures.h"
#include "data/CatalogueData.h"

#include "HBLCore/HBLAssertError.h"
#include "HBLCore/HBLUtCrc32.h"

#include <algorithm>
#include <string_view>

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

/// Neither a URI nor an acronym such as "PDF".
bool isPlain(std::string_view text) {
    return !isUri(text) && (text[0] < 'A' || text[0] > 'Z');
}

} // namespace

void countSymbols(Figures& figures) {
    std::string_view first;
    std::string_view last;
    for (const char* const text : symbols()) {
        if (!isSymbol(text))
            continue;
        figures.add("symbols", 1);
        figures.add("uriSymbols", isUri(text) ? 1 : 0);
        if (!isPlain(text))
            continue;
        first = first.empty() ? text : std::min<std::string_view>(first, text);
        last = std::max<std::string_view>(last, text);
    }
    figures.set("firstSymbol", first);
    figures.set("lastPlainSymbol", last);
}

} // namespace mrl::tool
