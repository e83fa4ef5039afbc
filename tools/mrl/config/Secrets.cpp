#include "config/Secrets.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace mrl::tool {

namespace {

constexpr std::string_view MASK = "********";

std::string lowered(std::string_view text) {
    std::string lower(text);
    std::ranges::transform(lower, lower.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return lower;
}

} // namespace

bool isSecretName(std::string_view name) {
    constexpr std::array<std::string_view, 7> SECRETS{"password",   "passwd",     "pwd",  "secret",
                                                      "passphrase", "credential", "token"};
    const std::string lower = lowered(name.substr(name.rfind('/') + 1));
    return lower.ends_with("key") || std::ranges::any_of(SECRETS, [&](std::string_view secret) {
               return lower.find(secret) != lower.npos;
           });
}

std::string withoutPasswords(std::string_view text) {
    std::string masked(text);
    for (auto scheme = masked.find("://"); scheme != masked.npos; scheme = masked.find("://", scheme + 3)) {
        const auto begin = scheme + 3;
        const auto end = masked.find_first_of("/?#\"<> \t\r\n", begin);
        const auto at = masked.substr(0, end).rfind('@');
        const auto colon = masked.find(':', begin);
        if (at != masked.npos && at > begin && colon < at) {
            masked.replace(colon + 1, at - colon - 1, MASK);
        }
    }
    return masked;
}

std::string shown(std::string_view name, std::string_view value) {
    if (isSecretName(name) && !value.empty()) {
        return std::string(MASK);
    }
    std::string line;
    for (const char c : withoutPasswords(value)) {
        if (c == '\n') {
            line += "\\n";
        } else if (static_cast<unsigned char>(c) < ' ' || c == '\x7f') {
            std::array<char, 8> escaped{};
            std::snprintf(escaped.data(), escaped.size(), "\\x%02x", static_cast<unsigned char>(c));
            line += escaped.data();
        } else {
            line += c;
        }
    }
    return line;
}

} // namespace mrl::tool
