#pragma once

#include "report/Table.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::bus {

/// A form that reports come in.
struct OutputFormat {
    std::string_view name;        ///< "HTML", as clients ask for it
    std::string_view contentType; ///< with the character encoding of a text
    std::string_view ending;      ///< of a file
    std::string (*render)(const Table& table);
};

/// All forms, the usual one first.
const std::vector<OutputFormat>& outputFormats();

/// The form of that name, null when there is none.
const OutputFormat* findOutputFormat(std::string_view name);

/// A page that is complete in itself.
std::string renderHtml(const Table& table);

/// Fields in quotes where they need them, lines ended by CR LF, the columns' names first.
std::string renderCsv(const Table& table);

/// A document in A4. Characters that its standard font does not have become question marks.
std::string renderPdf(const Table& table);

} // namespace mrl::bus
