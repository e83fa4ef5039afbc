#include "HBLCore/HBLBase64.h"

#include "HBLCore/HBLFailure.h"

#include <openssl/evp.h>

#include <algorithm>
#include <cstring>
#include <limits>

namespace {

std::size_t lineOf(int lineLength) {
    HBL_ASSERT(lineLength >= 0 && lineLength % 4 == 0);
    return static_cast<std::size_t>(lineLength);
}

} // namespace

std::size_t HBLBase64EncodedSize(std::size_t size, int lineLength) {
    const std::size_t line = lineOf(lineLength);
    HBL_ASSERT(size <= std::numeric_limits<std::size_t>::max() / 2);
    const std::size_t text = (size + 2) / 3 * 4;
    return line && text ? text + (text - 1) / line : text;
}

void HBLBase64Encode(const void* data, std::size_t size, char* text, int lineLength) {
    const std::size_t line = lineOf(lineLength);
    constexpr std::size_t most = std::size_t{3} * 1024; // bytes at a time when lines have no end
    const std::size_t step = line ? std::min(line / 4 * 3, most * 1024) : most;
    const auto* from = static_cast<const unsigned char*>(data);
    unsigned char block[most / 3 * 4 + 1]; // the encoder writes a NUL, for which `text` has no room
    for (std::size_t done = 0; done < size;) {
        if (line && done)
            *text++ = '\n';
        const std::size_t lineEnd = std::min(size, done + step);
        while (done < lineEnd) {
            const std::size_t part = std::min(most, lineEnd - done);
            const int made = EVP_EncodeBlock(block, from + done, static_cast<int>(part));
            std::memcpy(text, block, static_cast<std::size_t>(made));
            text += made;
            done += part;
        }
    }
}

std::string HBLBase64Encoded(std::string_view bytes) {
    std::string text(HBLBase64EncodedSize(bytes.size(), 0), '\0');
    HBLBase64Encode(bytes.data(), bytes.size(), text.data(), 0);
    return text;
}

int HBLBase64Decode(const char* text, void* data, std::size_t* size) {
    if (!size)
        return 1;
    *size = 0;
    if (!text || !data)
        return 1;
    unsigned char group[4];
    unsigned char bytes[3];
    int filled = 0;
    int padding = 0;
    std::size_t done = 0;
    for (; *text; ++text) {
        if (std::strchr(" \t\r\n", *text))
            continue;
        if (*text == '=')
            ++padding;
        else if (padding) // text behind the padding
            return 1;
        group[filled++] = static_cast<unsigned char>(*text);
        if (filled < 4)
            continue;
        filled = 0;
        if (padding > 2 || EVP_DecodeBlock(bytes, group, 4) != 3)
            return 1;
        const auto whole = static_cast<std::size_t>(3 - padding);
        std::memcpy(static_cast<char*>(data) + done, bytes, whole);
        done += whole;
        if (padding) { // only white space may follow
            if (text[1 + std::strspn(text + 1, " \t\r\n")] != '\0')
                return 1;
            break;
        }
    }
    if (filled)
        return 1;
    *size = done;
    return 0;
}
