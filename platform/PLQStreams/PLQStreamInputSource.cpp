#include "PLQStreams/PLQStreamInputSource.h"

#include "PLQStreams/PLQInputStream.h"

#include <xercesc/util/BinInputStream.hpp>

#include <algorithm>

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
            const std::size_t more = m_in.read(reinterpret_cast<char*>(buffer) + got, count - got);
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

    PLQInputStream& m_in;
    XMLFilePos m_position = 0;
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
