#pragma once

#include <cstddef>
#include <string>

namespace mrl::bench {

/// 128 KiB that pack badly, as pictures do, for whoever makes up large bodies.
inline const std::string& unpackableBytes() {
    static const std::string bytes = [] {
        std::string made(std::size_t{128} * 1024, '\0');
        unsigned state = 1;
        for (char& c : made) {
            state = state * 1664525U + 1013904223U;
            c = static_cast<char>(state >> 24);
        }
        return made;
    }();
    return bytes;
}

} // namespace mrl::bench
