#pragma once

#include "soap/Refusal.h"

#include "PLQStreams/PLQInputStream.h"

#include <map>
#include <string>
#include <string_view>

namespace mrl::bus {

/// The parts of a multipart body, one after the other, as they arrive. A body without its closing delimiter
/// is an error, so what was cut off is never taken for the whole.
class MultipartParts {
public:
    /// By name in small letters.
    using Headers = std::map<std::string, std::string, std::less<>>;

    static constexpr std::size_t maxHeaderBytes = 8192; ///< of one part
    static constexpr int maxParts = 1000;

    /// @throws Unreadable when no body can have the boundary.
    MultipartParts(PLQInputStream& body, const std::string& boundary);

    /// Goes on to the next part, over what is left of the one before.
    /// @return false behind the last.
    /// @throws Unreadable
    bool next();

    /// Of the current part.
    const Headers& headers() const { return m_headers; }

    /// Bytes of the current part; endOfStream behind its last.
    std::size_t read(char* buffer, std::size_t count);

private:
    enum class State { beforeFirst, inPart, behindPart, behindAll };

    bool fill();
    void skipPart();
    char takeChar(const char* where);
    std::string takeLine();
    void readHeaders();

    PLQInputStream& m_body; // borrowed
    std::string m_delimiter;
    std::string m_buffer{"\r\n"}; // so that a delimiter may begin the body
    std::size_t m_begin = 0;      // what is left of the buffer
    bool m_bodyEnded = false;
    State m_state = State::beforeFirst;
    int m_parts = 0;
    Headers m_headers;
};

} // namespace mrl::bus
