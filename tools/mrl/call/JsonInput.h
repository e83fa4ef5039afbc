#pragma once

#include <nlohmann/json.hpp>

#include <stdexcept>
#include <string>
#include <string_view>

namespace mrl::tool {

/// Members keep the order in which they stand.
using Json = nlohmann::ordered_json;

/// What is wrong with the JSON of a request, and where; nothing has been sent.
class JsonError : public std::runtime_error {
public:
    /// @param path such as "objects[0].defaultName"; empty for the whole.
    JsonError(std::string path, const std::string& message);

    const std::string& path() const { return m_path; }

private:
    std::string m_path;
};

/// How many levels of objects and arrays may stand in each other.
inline constexpr int maxJsonDepth = 100;

/// @throws JsonError for anything that is not JSON (with line and column), a member given twice, or more
/// than maxJsonDepth levels.
Json parseJson(std::string_view text);

/// The path of a member or an element below `path`.
std::string memberPath(const std::string& path, std::string_view member);
std::string elementPath(const std::string& path, std::size_t index);

/// What a value is, in the words of a complaint: "a text", "the number 12".
std::string kindOf(const Json& value);

} // namespace mrl::tool
