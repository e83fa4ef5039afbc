#include "ZORCrypto/detail/ControlDocument.h"

#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Purpose.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstring>

namespace mrl::detail {

namespace {

constexpr std::size_t c_longest = 65536;
constexpr std::array<std::pair<std::string_view, char>, 5> c_entities{
    {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}}};

/// Goes over the text once, from the left.
class Scanner {
public:
    Scanner(std::string_view text, std::string_view root)
        : m_rest(text)
        , m_size(text.size())
        , m_root(root) {}

    [[noreturn]] void expected(const std::string& what) const {
        refuse(eZORBadDocument, "the " + std::string(m_root) + " expects " + what + " at byte " +
                                    std::to_string(m_size - m_rest.size()));
    }
    bool skip(std::string_view what) {
        if (!m_rest.starts_with(what))
            return false;
        m_rest.remove_prefix(what.size());
        return true;
    }
    void take(std::string_view what) {
        if (!skip(what))
            expected('"' + std::string(what) + '"');
    }
    void skipBlanks() {
        while (!m_rest.empty() && std::isspace(static_cast<unsigned char>(m_rest.front())) != 0)
            m_rest.remove_prefix(1);
    }
    void skipDeclaration() {
        if (!skip("<?xml "))
            return;
        const std::size_t end = m_rest.find("?>");
        if (end == std::string_view::npos)
            expected("\"?>\"");
        m_rest.remove_prefix(end + 2);
    }
    std::string takeName() {
        const auto isOther = [](char c) { return std::isalnum(static_cast<unsigned char>(c)) == 0; };
        const auto end = std::ranges::find_if(m_rest, isOther);
        std::string name(m_rest.begin(), end);
        if (name.empty())
            expected("the name of an element");
        m_rest.remove_prefix(name.size());
        return name;
    }
    std::string takeText() {
        std::string text;
        while (!m_rest.empty() && m_rest.front() != '<') {
            if (!skip("&")) {
                text += m_rest.front();
                m_rest.remove_prefix(1);
                continue;
            }
            const auto entity = std::ranges::find_if(
                c_entities, [&](const auto& row) { return skip(std::string(row.first) + ';'); });
            if (entity == c_entities.end())
                expected("amp;, lt;, gt;, quot; or apos;");
            text += entity->second;
        }
        return text;
    }
    bool atEnd() const noexcept { return m_rest.empty(); }

private:
    std::string_view m_rest;
    std::size_t m_size;
    std::string_view m_root;
};

} // namespace

ControlDocument::ControlDocument(const char* text, std::string_view expectedRoot)
    : m_root(expectedRoot) {
    if (text == nullptr)
        refuse(eZORBadArgument, "the " + m_root + " is missing");
    const std::string_view whole(text, ::strnlen(text, c_longest + 1));
    if (whole.size() > c_longest)
        refuse(eZORBadDocument, "the " + m_root + " is longer than 65536 bytes");
    Scanner scanner(whole, m_root);
    scanner.skipBlanks();
    scanner.skipDeclaration();
    scanner.skipBlanks();
    scanner.take('<' + m_root + '>');
    for (scanner.skipBlanks(); !scanner.skip("</"); scanner.skipBlanks()) {
        scanner.take("<");
        std::string name = scanner.takeName();
        if (find(name) != nullptr)
            scanner.expected("one element \"" + name + "\" only");
        std::string content;
        if (!scanner.skip("/>")) {
            scanner.take(">");
            content = scanner.takeText();
            scanner.take("</" + name + '>');
        }
        m_elements.emplace_back(std::move(name), std::move(content));
    }
    scanner.take(m_root + '>');
    scanner.skipBlanks();
    if (!scanner.atEnd())
        scanner.expected("its end");
}

const std::string* ControlDocument::find(std::string_view name) const noexcept {
    const auto found = std::ranges::find(m_elements, name, &std::pair<std::string, std::string>::first);
    return found == m_elements.end() ? nullptr : &found->second;
}

const std::string& ControlDocument::get(std::string_view name) const {
    const std::string* const text = find(name);
    if (text == nullptr)
        refuse(eZORBadDocument, "the " + m_root + " has no element \"" + std::string(name) + '"');
    return *text;
}

} // namespace mrl::detail
