#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

struct ConfigurationMember;

/// A JSON value that knows the line it stands on.
struct ConfigurationTree {
    enum Kind { eObject, eList, eText, eNumber, eOther };

    Kind kind = eOther;
    int line = 1;                             // where it begins; for a member, that of its name
    std::string text;                         // of eText
    std::int64_t number = 0;                  // of eNumber
    std::vector<ConfigurationMember> members; // of eObject, in the order of the file
    std::vector<ConfigurationTree> items;     // of eList
};

struct ConfigurationMember {
    std::string name;
    ConfigurationTree value;
};

/// Reads JSON with comments.
/// @param path only for the texts of failures.
/// @throws LogConfigurationError when it is not well-formed, or an object has a name twice.
ConfigurationTree readConfigurationTree(std::string_view bytes, const std::string& path);

/// Throws LogConfigurationError with "PATH, line LINE: TEXT".
[[noreturn]] void refuseConfiguration(const std::string& path, int line, const std::string& text);

} // namespace mrl::detail
