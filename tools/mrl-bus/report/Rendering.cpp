#include "report/Rendering.h"

#include <algorithm>

namespace mrl::bus {

namespace {

std::string forHtml(std::string_view text) {
    std::string result;
    for (const char c : text)
        switch (c) {
        case '&': result += "&amp;"; break;
        case '<': result += "&lt;"; break;
        case '>': result += "&gt;"; break;
        default: result += c;
        }
    return result;
}

std::string htmlRow(const std::vector<std::string>& cells, const char* tag) {
    std::string row = "<tr>";
    for (const std::string& cell : cells)
        row.append("<").append(tag).append(">").append(forHtml(cell)).append("</").append(tag).append(">");
    return row + "</tr>\n";
}

/// A field that begins like a formula is one to a spreadsheet: a quote in front keeps it a text.
std::string csvField(const std::string& text) {
    std::string field = text;
    if (!field.empty() && std::string_view("=+-@\t\r").find(field.front()) != std::string_view::npos)
        field.insert(field.begin(), '\'');
    if (field.find_first_of(",\"\r\n") == std::string::npos)
        return field;
    for (std::size_t i = field.find('"'); i != std::string::npos; i = field.find('"', i + 2))
        field.insert(i, 1, '"');
    return "\"" + field + "\"";
}

std::string csvRow(const std::vector<std::string>& cells) {
    std::string row;
    for (const std::string& cell : cells)
        row.append(&cell == &cells.front() ? "" : ",").append(csvField(cell));
    return row + "\r\n";
}

} // namespace

const std::vector<OutputFormat>& outputFormats() {
    static const std::vector<OutputFormat> formats{
        {"HTML", "text/html; charset=utf-8", "html", &renderHtml},
        {"PDF", "application/pdf", "pdf", &renderPdf},
        {"CSV", "text/csv; charset=utf-8", "csv", &renderCsv},
    };
    return formats;
}

const OutputFormat* findOutputFormat(std::string_view name) {
    const auto found = std::ranges::find(outputFormats(), name, &OutputFormat::name);
    return found == outputFormats().end() ? nullptr : &*found;
}

std::string renderHtml(const Table& table) {
    std::string page = "<!DOCTYPE html>\n<html><head><meta charset=\"utf-8\"><title>" + forHtml(table.title) +
                       "</title></head>\n<body><h1>" + forHtml(table.title) + "</h1>\n<p>" +
                       forHtml(table.subtitle) + "</p>\n<table>\n" + htmlRow(table.columns, "th");
    for (const auto& row : table.rows)
        page += htmlRow(row, "td");
    return page + "</table></body></html>\n";
}

std::string renderCsv(const Table& table) {
    std::string text = csvRow(table.columns);
    for (const auto& row : table.rows)
        text += csvRow(row);
    return text;
}

} // namespace mrl::bus
