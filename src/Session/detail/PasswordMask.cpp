#include "Session/detail/PasswordMask.h"

#include "Session/MRLHelper.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/I18NString.h"

#include <algorithm>
#include <string>

namespace mrl::detail {

namespace {

constexpr const char* NAME = "password";
constexpr const char* END = "/password";
constexpr std::size_t TAG_LENGTH = 9; // "password>"

void putStars(I18NString& text, std::size_t position, std::size_t length) {
    std::u16string masked(text.view());
    std::fill_n(masked.begin() + static_cast<std::ptrdiff_t>(position), length, u'*');
    text = I18NString(masked);
}

/// The content of the element in clear.
I18NString clearText(const I18NString& element) {
    const std::string bytes = element.toUtf8();
    HBLByteBuffer decoded(1, bytes.size(), 0);
    MRLHelper::xmlDecode(bytes.data(), bytes.size(), decoded);
    decoded.chop(TAG_LENGTH);
    if (decoded.empty()) {
        return {};
    }
    decoded.setLength(decoded.pcount() - 1); // the bracket of the end tag
    return decoded.view();
}

} // namespace

void maskPassword(I18NString& request) {
    const std::size_t begin = request.find(NAME);
    if (begin == I18NString::npos) {
        return;
    }
    const std::size_t end = std::min(request.find(END, begin), request.length());
    const I18NString password = clearText(request.substr(begin, end - begin));
    if (password.empty()) {
        return;
    }
    const std::size_t found = request.find(password);
    if (found != I18NString::npos) {
        putStars(request, found, password.length());
    } else if (const std::size_t content = begin + TAG_LENGTH; content < end) {
        putStars(request, content, end - content);
    }
}

} // namespace mrl::detail
