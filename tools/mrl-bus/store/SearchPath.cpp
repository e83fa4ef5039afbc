#include "store/SearchPath.h"

#include "store/StoreError.h"

namespace mrl::bus {

namespace {

bool isNameStart(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_';
}
bool isNameChar(char c) {
    return isNameStart(c) || (c >= '0' && c <= '9') || c == '-';
}

class Parser {
public:
    explicit Parser(std::string_view text)
        : m_text(text) {}

    SearchPath path() {
        SearchPath result;
        do {
            limit(result.branches.size() < SearchPath::maxBranches, "paths joined by '|'",
                  SearchPath::maxBranches);
            result.branches.push_back(branch());
        } while (accept('|'));
        if (!atEnd())
            refuse("'" + std::string(1, peek()) + "' is not expected here",
                   "end the path, or go on with '/'");
        return result;
    }

private:
    SearchPath::Branch branch() {
        skipBlanks();
        if (atEnd() || peek() != '/')
            refuse(atEnd() ? "a path is missing" : "the path is not absolute",
                   "begin with '/', as in /content");
        SearchPath::Branch steps;
        while (!atEnd() && peek() == '/') {
            limit(steps.size() < SearchPath::maxSteps, "steps", SearchPath::maxSteps);
            ++m_at;
            const bool deep = !atEnd() && peek() == '/';
            if (deep)
                ++m_at;
            const bool root = !deep && steps.empty() && (skipBlanks(), atEnd() || peek() == '|');
            if (root)
                return steps;
            steps.push_back(step(deep ? SearchPath::Axis::descendant : SearchPath::Axis::child));
            skipBlanks();
        }
        return steps;
    }

    SearchPath::Step step(SearchPath::Axis axis) {
        SearchPath::Step result;
        result.axis = axis;
        if (!atEnd() && peek() == '*')
            ++m_at;
        else
            result.objectClass = name("a class such as report, or '*'");
        while (accept('[')) {
            limit(result.predicates.size() < SearchPath::maxPredicates, "conditions on a step",
                  SearchPath::maxPredicates);
            result.predicates.push_back(predicate());
        }
        return result;
    }

    SearchPath::Predicate predicate() {
        SearchPath::Predicate result;
        expect('@', "write a condition as [@name='...']");
        result.property = name("a property such as name");
        expect('=', "write a condition as [@name='...']");
        result.value = literal();
        expect(']', "close the condition");
        return result;
    }

    std::string literal() {
        skipBlanks();
        if (atEnd() || (peek() != '\'' && peek() != '"'))
            refuse("the value is not quoted", "put it in single or double quotes");
        const std::size_t begin = m_at;
        const char quote = m_text[m_at++];
        std::string value;
        while (!atEnd()) {
            const char c = m_text[m_at++];
            if (c != quote) {
                value += c;
                continue;
            }
            if (atEnd() || peek() != quote)
                return value;
            ++m_at;
            value += quote;
        }
        m_at = begin;
        refuse("the quoted value has no end", "close it with the quote it began with");
    }

    std::string name(const char* what) {
        const std::size_t begin = m_at;
        if (!atEnd() && isNameStart(peek()))
            while (!atEnd() && isNameChar(peek()))
                ++m_at;
        if (begin == m_at)
            refuse(atEnd() ? "the path ends too early"
                           : "'" + std::string(1, peek()) + "' is not expected here",
                   std::string("give ") + what);
        if (m_text.substr(m_at).starts_with("::") || m_text.substr(m_at).starts_with("("))
            refuse("axes and functions are not supported", "use '/', '//' and conditions on properties");
        return std::string(m_text.substr(begin, m_at - begin));
    }

    bool accept(char c) {
        skipBlanks();
        if (atEnd() || peek() != c)
            return false;
        ++m_at;
        return true;
    }

    void expect(char c, const char* remedy) {
        if (!accept(c))
            refuse(std::string("'") + c + "' is missing", remedy);
        skipBlanks();
    }

    void limit(bool kept, const char* what, std::size_t most) const {
        if (!kept)
            throw StoreError(StoreErrorCode::tooMuch, "The search path has more than " +
                                                          std::to_string(most) + " " + what +
                                                          "; ask in several requests.");
    }

    [[noreturn]] void refuse(const std::string& problem, const std::string& remedy) const {
        throw StoreError(StoreErrorCode::badSearchPath,
                         "The search path " + excerpt() + " is wrong at position " +
                             std::to_string(m_at + 1) + ": " + problem + "; " + remedy + ".");
    }

    std::string excerpt() const {
        constexpr std::size_t shown = 200;
        if (m_text.size() <= shown)
            return std::string(m_text);
        std::size_t end = shown; // never in the middle of a UTF-8 sequence
        while (end > 0 && (static_cast<unsigned char>(m_text[end]) & 0xC0U) == 0x80U)
            --end;
        return std::string(m_text.substr(0, end)) + "...";
    }

    void skipBlanks() {
        while (!atEnd() && (peek() == ' ' || peek() == '\t' || peek() == '\n' || peek() == '\r'))
            ++m_at;
    }
    bool atEnd() const { return m_at == m_text.size(); }
    char peek() const { return m_text[m_at]; }

    std::string_view m_text;
    std::size_t m_at = 0;
};

} // namespace

SearchPath SearchPath::parse(std::string_view text) {
    if (text.size() > maxLength)
        throw StoreError(StoreErrorCode::tooMuch, "The search path has " + std::to_string(text.size()) +
                                                      " bytes; at most " + std::to_string(maxLength) +
                                                      " are accepted.");
    return Parser(text).path();
}

std::string SearchPath::quote(std::string_view text) {
    const bool useDouble =
        text.find('\'') != std::string_view::npos && text.find('"') == std::string_view::npos;
    const char mark = useDouble ? '"' : '\'';
    std::string result(1, mark);
    for (const char c : text) {
        result += c;
        if (c == mark)
            result += c;
    }
    return result += mark;
}

std::string SearchPath::step(std::string_view objectClass, std::string_view name) {
    return std::string(objectClass) + "[@name=" + quote(name) + "]";
}

} // namespace mrl::bus
