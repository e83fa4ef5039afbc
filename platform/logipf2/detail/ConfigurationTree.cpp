#include "logipf2/detail/ConfigurationTree.h"

#include "HBLCore/HBLFailure.h"
#include "logipf2/LogConfigurationError.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>

namespace mrl::detail {

namespace {

constexpr std::size_t MAX_DEPTH = 16;

/// Counts the lines that the parser has taken.
class LineCounter {
public:
    using iterator_category = std::input_iterator_tag;
    using value_type = char;
    using difference_type = std::ptrdiff_t;
    using pointer = const char*;
    using reference = const char&;

    LineCounter(const char* at, int& line)
        : m_at(at)
        , m_line(&line) {}
    reference operator*() const { return *m_at; }
    LineCounter& operator++() {
        *m_line += *m_at == '\n' ? 1 : 0;
        ++m_at;
        return *this;
    }
    bool operator==(const LineCounter& other) const { return m_at == other.m_at; }

private:
    const char* m_at;
    int* m_line; // borrowed
};

/// Builds the tree from the parser's events. The interface is the parser's, `bool` says whether to go on.
class TreeBuilder {
public:
    TreeBuilder(const std::string& path, const int& line)
        : m_path(path)
        , m_line(line) {}

    bool null() { return other(); }
    bool boolean(bool) { return other(); }
    bool number_float(double, const std::string&) { return other(); }
    bool number_integer(std::int64_t value) {
        make(ConfigurationTree::eNumber).number = value;
        return true;
    }
    bool number_unsigned(std::uint64_t value) {
        constexpr std::uint64_t most = std::numeric_limits<std::int64_t>::max();
        return number_integer(static_cast<std::int64_t>(std::min(value, most)));
    }
    bool string(std::string& value) {
        make(ConfigurationTree::eText).text = std::move(value);
        return true;
    }
    template <class Binary>
    bool binary(Binary&) {
        return other(); // JSON has none, the interface asks for it
    }
    bool start_object(std::size_t) { return open(ConfigurationTree::eObject); }
    bool start_array(std::size_t) { return open(ConfigurationTree::eList); }
    bool end_object() { return close(); }
    bool end_array() { return close(); }
    bool key(std::string& name) {
        const auto& members = m_open.back()->members;
        if (std::any_of(members.begin(), members.end(), [&](const auto& one) { return one.name == name; })) {
            refuseConfiguration(m_path, m_line, "\"" + name + "\" stands twice here; keep one of them");
        }
        m_name = std::move(name);
        m_nameLine = m_line;
        return true;
    }
    template <class Exception>
    bool parse_error(std::size_t, const std::string&, const Exception& failure) {
        std::string text = failure.what();
        if (const std::size_t reason = text.find("syntax error"); reason != std::string::npos) {
            text.erase(0, reason);
        }
        refuseConfiguration(m_path, m_line, "not JSON: " + text);
    }

    ConfigurationTree take() { return std::move(m_root); }

private:
    bool other() {
        make(ConfigurationTree::eOther);
        return true;
    }
    bool open(ConfigurationTree::Kind kind) {
        if (m_open.size() == MAX_DEPTH) {
            refuseConfiguration(m_path, m_line, "nested too deeply; see the example for what is known here");
        }
        m_open.push_back(&make(kind));
        return true;
    }
    bool close() {
        m_open.pop_back();
        return true;
    }
    ConfigurationTree& place() {
        if (m_open.empty()) {
            return m_root;
        }
        ConfigurationTree& parent = *m_open.back();
        if (parent.kind == ConfigurationTree::eObject) {
            parent.members.push_back({std::move(m_name), {}});
            return parent.members.back().value;
        }
        return parent.items.emplace_back();
    }
    ConfigurationTree& make(ConfigurationTree::Kind kind) {
        const bool isMember = !m_open.empty() && m_open.back()->kind == ConfigurationTree::eObject;
        ConfigurationTree& made = place();
        made.kind = kind;
        made.line = isMember ? m_nameLine : m_line;
        return made;
    }

    const std::string& m_path;
    const int& m_line; // of what the parser has just read
    ConfigurationTree m_root;
    std::vector<ConfigurationTree*> m_open; // borrowed from m_root; the innermost last
    std::string m_name;                     // of the member that comes next
    int m_nameLine = 1;
};

} // namespace

ConfigurationTree readConfigurationTree(std::string_view bytes, const std::string& path) {
    int line = 1;
    TreeBuilder builder(path, line);
    // With comments; a failure leaves as an exception.
    nlohmann::json::sax_parse(LineCounter(bytes.data(), line), LineCounter(bytes.data() + bytes.size(), line),
                              &builder, nlohmann::json::input_format_t::json, true, true);
    return builder.take();
}

void refuseConfiguration(const std::string& path, int line, const std::string& text) {
    HBL_THROW(LogConfigurationError(path + ", line " + std::to_string(line) + ": " + text),
              "readLogConfiguration");
}

} // namespace mrl::detail
