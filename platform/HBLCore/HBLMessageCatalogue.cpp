#include "HBLCore/HBLMessageCatalogue.h"

#include "HBLCore/HBLThreadGuard.h"

#include <unicode/locid.h>
#include <unicode/msgfmt.h>

#include <cstdio>
#include <cstdlib>
#include <dlfcn.h>
#include <fstream>
#include <istream>
#include <memory>
#include <optional>

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kFallbackLanguage = "en";

bool isMessageNumber(std::string_view text) {
    return text.size() == 10 && text.starts_with("0x") &&
           text.find_first_not_of("0123456789abcdefABCDEF", 2) == std::string_view::npos;
}

std::optional<std::string> patternProblem(const std::u16string& pattern) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError where{};
    const icu::MessageFormat parsed(icu::UnicodeString(pattern.data(), static_cast<int32_t>(pattern.size())),
                                    icu::Locale::getEnglish(), where, status);
    if (U_SUCCESS(status))
        return std::nullopt;
    return std::string(u_errorName(status)) + " at character " + std::to_string(where.offset);
}

/// "de-AT" -> "de_at"; nullopt for what cannot be part of a file name.
std::optional<std::string> normalized(std::string_view language) {
    constexpr std::size_t longestTag = 35;
    if (language.empty() || language.size() > longestTag)
        return std::nullopt;
    std::string name;
    for (char c : language) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
        const bool allowed = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '_';
        if (!allowed)
            return std::nullopt;
        name += c == '-' ? '_' : c;
    }
    return name;
}

/// The language and its ancestors, English last.
std::vector<std::string> languagesFor(const char* language) {
    std::vector<std::string> languages;
    if (auto name = normalized(language ? language : ""))
        while (!name->empty()) {
            languages.push_back(*name);
            const auto cut = name->rfind('_');
            name->resize(cut == std::string::npos ? 0 : cut);
        }
    if (languages.empty() || languages.back() != kFallbackLanguage)
        languages.emplace_back(kFallbackLanguage);
    return languages;
}

/// The catalogues read so far. A file that is not there is looked for again the next time.
class Store {
public:
    static Store& instance() {
        static Store* store = new Store; // lives on: messages are formatted until the process ends
        return *store;
    }

    const HBLMessageCatalogue* get(const std::string& component, const std::string& language) {
        const std::string name = component + "_" + language + ".txt";
        const HBLThreadGuard guard(m_lock);
        // The directory is part of the key, so that a changed environment variable has its effect.
        for (const fs::path& directory : HBLMessageCatalogue::getDirectories()) {
            const std::string path = (directory / name).string();
            if (auto found = m_catalogues.find(path); found != m_catalogues.end())
                return found->second.get();
            if (std::ifstream in(path, std::ios::binary); in)
                return m_catalogues.emplace(path, std::make_unique<HBLMessageCatalogue>(in))
                    .first->second.get();
        }
        return nullptr;
    }

private:
    HBLThreadCriticalSection m_lock;
    std::map<std::string, std::unique_ptr<HBLMessageCatalogue>> m_catalogues;
};

std::string withoutCatalogue(const HBLMessageComponents& message) {
    char number[16];
    std::snprintf(number, sizeof number, "0x%08x", message.getNumber());
    std::string text = message.getComponent() + " " + number;
    const char* separator = ": ";
    for (const HBLMessageParm& parameter : message.getParameters()) {
        text += separator;
        text +=
            parameter.isLocalNumber() ? std::to_string(parameter.getNumber()) : parameter.getText().toUtf8();
        separator = ", ";
    }
    return text;
}

icu::Formattable formattable(const HBLMessageParm& parameter) {
    if (parameter.isLocalNumber())
        return {static_cast<int64_t>(parameter.getNumber())};
    const I18NString& text = parameter.getText();
    return {icu::UnicodeString(text.getExternalBuffer(), static_cast<int32_t>(text.length()))};
}

std::optional<std::string> formatted(const std::u16string& pattern, const HBLMessageComponents& message,
                                     const std::string& language) {
    UErrorCode status = U_ZERO_ERROR;
    UParseError where{};
    const icu::MessageFormat format(icu::UnicodeString(pattern.data(), static_cast<int32_t>(pattern.size())),
                                    icu::Locale::createFromName(language.c_str()), where, status);
    std::vector<icu::Formattable> arguments;
    for (const HBLMessageParm& parameter : message.getParameters())
        arguments.push_back(formattable(parameter));
    icu::UnicodeString text;
    icu::FieldPosition ignored(icu::FieldPosition::DONT_CARE);
    format.format(arguments.data(), static_cast<int32_t>(arguments.size()), text, ignored, status);
    if (U_FAILURE(status))
        return std::nullopt;
    return I18NString(text.getBuffer(), static_cast<std::size_t>(text.length())).toUtf8();
}

/// The directory of the shared library or program that holds this code.
fs::path ownDirectory() {
    std::error_code failed;
    Dl_info info{};
    if (dladdr(reinterpret_cast<const void*>(&ownDirectory), &info) && info.dli_fname)
        if (fs::path file = fs::canonical(info.dli_fname, failed); !failed)
            return file.parent_path();
    return fs::read_symlink("/proc/self/exe", failed).parent_path(); // a program started by its bare name
}

} // namespace

HBLMessageCatalogue::HBLMessageCatalogue(std::istream& in, std::vector<std::string>* problems) {
    std::string line;
    int lineNumber = 0;
    while (std::getline(in, line)) {
        const int first = ++lineNumber;
        for (std::string next; line.ends_with('\\') && std::getline(in, next); ++lineNumber)
            line.replace(line.size() - 1, 1, next);
        if (line.ends_with('\r'))
            line.pop_back();
        if (line.empty() || line.starts_with('#'))
            continue;

        std::string problem;
        const std::string_view number = std::string_view(line).substr(0, line.find(' '));
        const auto textAt = line.find_first_not_of(' ', number.size());
        if (!isMessageNumber(number)) {
            problem = "a message begins with its number, as 0x and eight hexadecimal digits";
        } else if (textAt == std::string::npos) {
            problem = "no text behind " + std::string(number);
        } else {
            const auto key = static_cast<std::uint32_t>(std::stoul(std::string(number), nullptr, 16));
            const I18NString text(std::string_view(line).substr(textAt));
            if (auto broken = patternProblem(std::u16string(text.view())))
                problem = "the pattern of " + std::string(number) + " is broken: " + *broken;
            else if (!m_patterns.emplace(key, text.view()).second)
                problem = std::string(number) + " stands in the file twice; the first counts";
        }
        if (!problem.empty() && problems)
            problems->push_back("line " + std::to_string(first) + ": " + problem);
    }
}

const std::u16string* HBLMessageCatalogue::find(std::uint32_t number) const noexcept {
    const auto found = m_patterns.find(number);
    return found == m_patterns.end() ? nullptr : &found->second;
}

std::string HBLMessageCatalogue::format(const HBLMessageComponents& message, const char* language) {
    if (normalized(message.getComponent()))
        for (const std::string& candidate : languagesFor(language))
            if (const auto* catalogue = Store::instance().get(message.getComponent(), candidate))
                if (const auto* pattern = catalogue->find(message.getNumber()))
                    if (auto text = formatted(*pattern, message, candidate))
                        return *text;
    return withoutCatalogue(message);
}

std::vector<fs::path> HBLMessageCatalogue::getDirectories() {
    if (const char* chosen = secure_getenv("MRL_RESOURCES"); chosen && *chosen)
        return {fs::path(chosen)};
    static const fs::path own = ownDirectory();
    return {own / "../share/mrl/resources", own / "../../share/mrl/resources",
#ifdef MRL_INSTALLED_RESOURCES
            MRL_INSTALLED_RESOURCES
#endif
    };
}
