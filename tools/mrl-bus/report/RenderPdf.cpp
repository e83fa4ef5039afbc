// A document of text lines in Helvetica: objects, their offsets, a trailer.
#include "report/Rendering.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>

namespace mrl::bus {

namespace {

constexpr int pageWidth = 595; // A4, in points
constexpr int pageHeight = 842;
constexpr int margin = 50;
constexpr int lineHeight = 14;
constexpr int titleSize = 16;
constexpr int textSize = 9;
constexpr std::size_t linesPerPage = (pageHeight - 2 * margin - 3 * lineHeight) / lineHeight;
constexpr double charWidth = 0.5; // of the font's size, on average: enough to cut cells by

/// Latin-1, which the standard fonts have, out of UTF-8.
std::string latin1(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto byte = static_cast<std::uint8_t>(text[i]);
        if (byte >= 0x20 && byte < 0x7f) {
            result += text[i];
        } else if ((byte == 0xc2 || byte == 0xc3) && i + 1 < text.size()) {
            const auto low = static_cast<std::uint8_t>(static_cast<std::uint8_t>(text[++i]) & 0x3fU);
            result += static_cast<char>((byte == 0xc2 ? 0x80 : 0xc0) + low);
        } else if (byte >= 0xc0 || byte < 0x80) { // the first byte of any other character
            result += '?';
        }
    }
    return result;
}

std::string quoted(std::string_view text) {
    std::string result = "(";
    for (const char c : text) {
        if (c == '(' || c == ')' || c == '\\')
            result += '\\';
        result += c;
    }
    return result + ")";
}

std::string textAt(int x, int y, const char* font, int size, std::string_view text) {
    return std::string("BT /") + font + " " + std::to_string(size) + " Tf " + std::to_string(x) + " " +
           std::to_string(y) + " Td " + quoted(text) + " Tj ET\n";
}

std::string rowAt(int y, const char* font, const std::vector<std::string>& cells) {
    const int width = (pageWidth - 2 * margin) / static_cast<int>(std::max<std::size_t>(1, cells.size()));
    const auto fitting = static_cast<std::size_t>(width / (textSize * charWidth)) - 1;
    std::string line;
    int x = margin;
    for (const std::string& cell : cells) {
        line += textAt(x, y, font, textSize, latin1(cell).substr(0, fitting));
        x += width;
    }
    return line;
}

std::string pageContent(const Table& table, std::size_t first, std::size_t end) {
    int y = pageHeight - margin;
    std::string content = textAt(margin, y, "F2", titleSize, latin1(table.title));
    content += textAt(margin, y -= lineHeight, "F1", textSize, latin1(table.subtitle));
    content += rowAt(y -= 2 * lineHeight, "F2", table.columns);
    for (std::size_t i = first; i < end; ++i)
        content += rowAt(y -= lineHeight, "F1", table.rows[i]);
    return content;
}

/// Collects numbered objects and writes the table of their places.
class PdfObjects {
public:
    /// The next object; they are numbered from 1.
    void add(const std::string& body) {
        m_offsets.push_back(m_bytes.size());
        m_bytes += std::to_string(m_offsets.size()) + " 0 obj\n" + body + "\nendobj\n";
    }

    std::string finish() {
        const std::size_t table = m_bytes.size();
        const std::string size = std::to_string(m_offsets.size() + 1);
        m_bytes += "xref\n0 " + size + "\n0000000000 65535 f \n";
        for (const std::size_t offset : m_offsets) {
            std::array<char, 24> row{};
            std::snprintf(row.data(), row.size(), "%010zu 00000 n \n", offset);
            m_bytes += row.data();
        }
        m_bytes += "trailer\n<< /Size " + size + " /Root 1 0 R >>\nstartxref\n" + std::to_string(table) +
                   "\n%%EOF\n";
        return std::move(m_bytes);
    }

private:
    std::string m_bytes = "%PDF-1.4\n%\xe2\xe3\xcf\xd3\n";
    std::vector<std::size_t> m_offsets;
};

std::string font(const char* name) {
    return std::string("<< /Type /Font /Subtype /Type1 /BaseFont /") + name +
           " /Encoding /WinAnsiEncoding >>";
}

} // namespace

std::string renderPdf(const Table& table) {
    constexpr std::size_t firstPage = 5; // behind catalogue, pages and fonts; each page has two objects
    const std::size_t pages = std::max<std::size_t>(1, (table.rows.size() + linesPerPage - 1) / linesPerPage);
    std::string kids;
    for (std::size_t i = 0; i < pages; ++i)
        kids += std::to_string(firstPage + 2 * i) + " 0 R ";

    PdfObjects objects;
    objects.add("<< /Type /Catalog /Pages 2 0 R >>");
    objects.add("<< /Type /Pages /Kids [ " + kids + "] /Count " + std::to_string(pages) + " >>");
    objects.add(font("Helvetica"));
    objects.add(font("Helvetica-Bold"));
    for (std::size_t i = 0; i < pages; ++i) {
        objects.add("<< /Type /Page /Parent 2 0 R /MediaBox [ 0 0 " + std::to_string(pageWidth) + " " +
                    std::to_string(pageHeight) +
                    " ] /Resources << /Font << /F1 3 0 R /F2 4 0 R >> >> /Contents " +
                    std::to_string(firstPage + 2 * i + 1) + " 0 R >>");
        const std::string content =
            pageContent(table, i * linesPerPage, std::min((i + 1) * linesPerPage, table.rows.size()));
        objects.add("<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "endstream");
    }
    return objects.finish();
}

} // namespace mrl::bus
