#include "call/JsonInput.h"

#include <set>
#include <utility>
#include <vector>

namespace mrl::tool {

namespace {

/// Looks at the events of the parser for what the parser itself lets pass.
class Inspector {
public:
    bool operator()(int depth, Json::parse_event_t event, const Json& parsed) {
        if (depth >= maxJsonDepth)
            throw JsonError(path(), "there are more than " + std::to_string(maxJsonDepth) +
                                        " levels of objects and arrays");
        switch (event) {
        case Json::parse_event_t::object_start: m_open.emplace_back(); break;
        case Json::parse_event_t::object_end: m_open.pop_back(); break;
        case Json::parse_event_t::key:
            m_open.back().current = parsed.get<std::string>();
            if (!m_open.back().names.insert(m_open.back().current).second)
                throw JsonError(path(), "is given twice; one of the two has to go");
            break;
        default: break;
        }
        return true;
    }

private:
    struct OpenObject {
        std::set<std::string> names;
        std::string current;
    };

    /// Without the indices of arrays, which the events do not tell.
    std::string path() const {
        std::string result;
        for (const OpenObject& open : m_open)
            if (!open.current.empty())
                result = memberPath(result, open.current);
        return result;
    }

    std::vector<OpenObject> m_open;
};

std::string placed(const std::string& path, const std::string& message) {
    return path.empty() ? message : path + ": " + message;
}

} // namespace

JsonError::JsonError(std::string path, const std::string& message)
    : std::runtime_error(placed(path, message))
    , m_path(std::move(path)) {}

Json parseJson(std::string_view text) {
    Inspector inspector;
    try {
        return Json::parse(text.begin(), text.end(), std::ref(inspector));
    } catch (const Json::parse_error& e) {
        // "[json.exception.parse_error.101] parse error at line 1, column 5: ..."
        const std::string_view what = e.what();
        const std::size_t start = what.find("] ");
        throw JsonError("", "the data is not JSON: " +
                                std::string(what.substr(start == std::string_view::npos ? 0 : start + 2)));
    }
}

std::string memberPath(const std::string& path, std::string_view member) {
    return path.empty() ? std::string(member) : path + "." + std::string(member);
}

std::string elementPath(const std::string& path, std::size_t index) {
    return path + "[" + std::to_string(index) + "]";
}

std::string kindOf(const Json& value) {
    if (value.is_number())
        return "the number " + value.dump();
    if (value.is_boolean())
        return value.get<bool>() ? "true" : "false";
    if (value.is_null())
        return "null";
    if (value.is_string())
        return "a text";
    return value.is_array() ? "an array" : "an object";
}

} // namespace mrl::tool
