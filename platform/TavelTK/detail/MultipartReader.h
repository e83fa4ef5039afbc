#pragma once

#include "TavelTK/detail/ByteSource.h"
#include "TavelTK/detail/Headers.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

/// Takes the parts of a multipart body one after the other, in constant memory however large they are.
class MultipartReader {
public:
    enum class Fault {
        malformed,  ///< the body breaks the rules of multipart
        tooLarge,   ///< headers or number of parts exceed their limit
        endsTooSoon ///< the body ended before its closing boundary
    };
    /// Throws the exception of a fault.
    using Refuse = std::function<void(Fault, const std::string& cause)>;

    /// @param boundary without its leading dashes; 1 to 70 characters.
    /// @param maxParts 0: no limit.
    MultipartReader(ByteSource& source, std::string_view boundary, std::int64_t maxHeaderBytes,
                    std::int64_t maxParts, Refuse refuse);

    /// Goes to the next part, past what is left of this one (or of the preamble), and reads its header.
    /// @return false after the last part.
    bool next();

    /// The header of the current part.
    const Headers& headers() const { return m_headers; }

    /// Bytes of the current part: up to `size`, at least one; 0 at the part's end.
    std::size_t read(char* buffer, std::size_t size);

private:
    bool fill();
    void findDelimiter();
    void expectEmptyPart();
    std::string readLine(std::int64_t& budget);
    [[noreturn]] void refuse(Fault fault, const std::string& cause);

    ByteSource& m_source;
    const std::string m_delimiter; // CRLF, two dashes, boundary
    const std::int64_t m_maxHeaderBytes;
    const std::int64_t m_maxParts;
    const Refuse m_refuse;
    Headers m_headers;
    std::int64_t m_parts = 0;
    bool m_finished = false;

    std::vector<char> m_buffer;
    std::size_t m_begin = 0;    // first byte not yet taken
    std::size_t m_end = 0;      // end of the bytes in the buffer
    std::size_t m_dataEnd = 0;  // up to here the bytes are known to belong to the current part
    bool m_atDelimiter = false; // a delimiter begins at m_dataEnd
    std::size_t m_delimiterSize;
};

} // namespace mrl::detail
