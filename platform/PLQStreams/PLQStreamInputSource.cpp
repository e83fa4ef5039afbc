#include "PLQStreams/PLQStreamInputSource.h"

#include "PLQStreams/PLQInputStream.h"

#include <xercesc/util/BinInputStream.hpp>

#include <algorithm>
#include <exception>
#include <utility>

namespace {

class StreamReader : public xercesc::BinInputStream {
public:
    explicit StreamReader(PLQInputStream& in)
        : m_in(in) {}

    XMLFilePos curPos() const override { return m_position; }

    XMLSize_t readBytes(XMLByte* buffer, XMLSize_t count) override {
        const std::size_t least = m_position == 0 ? std::min(count, s_probe) : std::min<XMLSize_t>(count, 1);
        std::size_t got = 0;
        while (got < least) {
            const std::size_t more = read(buffer + got, count - got, got != 0);
            if (PLQInputStream::isEnd(more))
                break;
            got += more;
        }
        m_position += got;
        return got;
    }

    const XMLCh* getContentType() const override { return nullptr; }

private:
    // The parser tells the encoding from what its first read gives, and from less than this it may take
    // UTF-16 for UTF-8.
    static constexpr XMLSize_t s_probe = 64;

    /// @param isKept a failure waits for the next call, so that what has come before it is parsed first
    std::size_t read(XMLByte* place, std::size_t room, bool isKept) {
        if (m_failure != nullptr)
            std::rethrow_exception(std::exchange(m_failure, nullptr));
        try {
            return m_in.read(reinterpret_cast<char*>(place), room);
        } catch (...) {
            if (!isKept)
                throw;
            m_failure = std::current_exception();
            return 0;
        }
    }

    PLQInputStream& m_in;
    XMLFilePos m_position = 0;
    std::exception_ptr m_failure;
};

} // namespace

PLQStreamInputSource::PLQStreamInputSource(PLQInputStream& in)
    : m_in(in) {}

PLQStreamInputSource::PLQStreamInputSource(PLQInputStream& in, xercesc::MemoryManager& memory)
    : InputSource(&memory)
    , m_in(in) {}

PLQStreamInputSource::PLQStreamInputSource(PLQInputStream& in, const char* systemId)
    : InputSource(systemId)
    , m_in(in) {}

PLQStreamInputSource::~PLQStreamInputSource() = default;

xercesc::BinInputStream* PLQStreamInputSource::makeStream() const {
    return new (getMemoryManager()) StreamReader(m_in);
}
