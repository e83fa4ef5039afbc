#include "TavelTK/detail/MultipartReader.h"

#include "TavelTK/detail/Failure.h"

#include <algorithm>
#include <cstring>

namespace mrl::detail {

namespace {

constexpr std::size_t s_bufferSize = 65536;

} // namespace

MultipartReader::MultipartReader(ByteSource& source, std::string_view boundary, std::int64_t maxHeaderBytes,
                                 std::int64_t maxParts, Refuse refuse)
    : m_source(source)
    , m_delimiter("\r\n--" + std::string(boundary))
    , m_maxHeaderBytes(maxHeaderBytes)
    , m_maxParts(maxParts)
    , m_refuse(std::move(refuse))
    , m_buffer(s_bufferSize)
    , m_delimiterSize(m_delimiter.size()) {
    if (boundary.empty() || boundary.size() > 70)
        this->refuse(Fault::malformed,
                     "the boundary '" + printable(boundary) + "' is not 1 to 70 characters");
    // The first delimiter may be the body's first line: a line end in front makes it like the others.
    m_buffer[0] = '\r';
    m_buffer[1] = '\n';
    m_end = 2;
}

void MultipartReader::refuse(Fault fault, const std::string& cause) {
    m_refuse(fault, cause);
    hblAssertFailed("HBL_ASSERT(refused);", HBL_HERE);
}

bool MultipartReader::fill() {
    if (m_begin != 0) {
        std::memmove(m_buffer.data(), m_buffer.data() + m_begin, m_end - m_begin);
        m_end -= m_begin;
        m_dataEnd -= std::min(m_dataEnd, m_begin);
        m_begin = 0;
    }
    const std::size_t count = m_source.read(m_buffer.data() + m_end, m_buffer.size() - m_end);
    m_end += count;
    return count != 0;
}

void MultipartReader::findDelimiter() {
    const std::string_view there(m_buffer.data() + m_dataEnd, m_end - m_dataEnd);
    const std::size_t found = there.find(m_delimiter);
    m_atDelimiter = found != std::string_view::npos;
    if (m_atDelimiter)
        m_dataEnd += found;
    else if (there.size() >= m_delimiter.size()) // the tail may be the delimiter's beginning
        m_dataEnd += there.size() - (m_delimiter.size() - 1);
}

std::size_t MultipartReader::read(char* buffer, std::size_t size) {
    if (m_finished)
        return 0;
    while (m_begin == m_dataEnd) {
        if (m_atDelimiter)
            return 0;
        findDelimiter();
        if (m_begin == m_dataEnd && !m_atDelimiter && !fill())
            refuse(Fault::endsTooSoon, "it ended within part " + std::to_string(m_parts));
    }
    const std::size_t count = std::min(size, m_dataEnd - m_begin);
    std::memcpy(buffer, m_buffer.data() + m_begin, count);
    m_begin += count;
    return count;
}

std::string MultipartReader::readLine(std::int64_t& budget) {
    std::string line;
    for (;;) {
        if (m_begin == m_end && !fill())
            refuse(Fault::endsTooSoon, "it ended within the header of part " + std::to_string(m_parts));
        const std::string_view there(m_buffer.data() + m_begin, m_end - m_begin);
        const std::size_t newline = there.find('\n');
        const std::size_t count = newline == std::string_view::npos ? there.size() : newline + 1;
        budget -= static_cast<std::int64_t>(count);
        if (budget < 0)
            refuse(Fault::tooLarge, "the header of part " + std::to_string(m_parts) +
                                        " is longer than its limit (max-header-bytes)");
        line.append(there.substr(0, count));
        m_begin += count;
        if (newline != std::string_view::npos)
            break;
    }
    line.pop_back();
    if (!line.empty() && line.back() == '\r')
        line.pop_back();
    return line;
}

// Some writers let the empty line after the header of an empty part be the line end of the delimiter.
void MultipartReader::expectEmptyPart() {
    const std::string_view line = std::string_view(m_delimiter).substr(2);
    while (m_end - m_begin < line.size() && fill()) {
    }
    m_atDelimiter = std::string_view(m_buffer.data() + m_begin, m_end - m_begin).starts_with(line);
    m_delimiterSize = m_atDelimiter ? line.size() : m_delimiter.size();
}

bool MultipartReader::next() {
    char skipped[4096];
    while (read(skipped, sizeof skipped) != 0) {
    }
    if (m_finished)
        return false;
    m_begin += m_delimiterSize;
    m_atDelimiter = false;

    while (m_end - m_begin < 2)
        if (!fill())
            refuse(Fault::endsTooSoon, "it ended at a boundary");
    if (m_buffer[m_begin] == '-' && m_buffer[m_begin + 1] == '-') {
        m_finished = true;
        return false;
    }

    m_headers = {};
    if (++m_parts > m_maxParts && m_maxParts != 0)
        refuse(Fault::tooLarge, "there are more than " + std::to_string(m_maxParts) + " parts (max-parts)");
    std::int64_t budget = m_maxHeaderBytes;
    if (readLine(budget).find_first_not_of(" \t") != std::string::npos)
        refuse(Fault::malformed, "a boundary is followed by other text than its line's end");
    for (;;) {
        const std::string line = readLine(budget);
        if (line.empty())
            break;
        if (!m_headers.add(line))
            refuse(Fault::malformed,
                   "a header line of part " + std::to_string(m_parts) + " is '" + printable(line) + "'");
    }
    m_dataEnd = m_begin;
    expectEmptyPart();
    return true;
}

} // namespace mrl::detail
