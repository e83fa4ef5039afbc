#pragma once

#include "HBLCore/HBLMessageComponents.h"
#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// The texts of one component in one language, read from "<component>_<language>.txt" in the resource
/// directory: the directory that the environment variable MRL_RESOURCES names when it is set, else
/// "../share/mrl/resources" or "../../share/mrl/resources" beside the file that holds this code, else
/// the installed place.
///
/// A catalogue is UTF-8, one message a line: the number in hexadecimal ("0xa6456bb1"), blank, and the
/// text as a pattern of ICU's MessageFormat ("{0}" is the first parameter). Empty lines and lines that
/// begin with "#" are comments; a line ending in "\" goes on in the next.
class MRL_EXPORT HBLMessageCatalogue {
public:
    /// Reads `in`. Lines that are no message are left out and told in `problems`, if given, as
    /// "line 3: ..."
    explicit HBLMessageCatalogue(std::istream& in, std::vector<std::string>* problems = nullptr);

    /// The pattern of a message; null if there is none.
    const std::u16string* find(std::uint32_t number) const noexcept;
    std::size_t size() const noexcept { return m_patterns.size(); }

    /// The text of `message`, UTF-8, in the first of these languages that has it: `language`, the same
    /// without its last part ("de-at", "de"), English. Else "<component> 0x<number>: <parameter>, ...".
    /// Thread-safe; catalogues are read once and kept.
    static std::string format(const HBLMessageComponents& message, const char* language);

    /// Where catalogues are looked for, first choice first.
    static std::vector<std::filesystem::path> getDirectories();

private:
    std::map<std::uint32_t, std::u16string> m_patterns;
};
