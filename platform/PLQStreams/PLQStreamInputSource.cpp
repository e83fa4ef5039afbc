#include "PLQStreams/PLQStreamInputSource.h"

#include "PLQStreams/PLQInputStream.h"

#include <xercesc/util/BinInputStream.hpp>

namespace {

class StreamReader : public xercesc::BinInputStream {
public:
    explicit StreamReader(PLQInputStream& in)
        : m_in(in) {}

    XMLFilePos curPos() const override { return m_position; }

    XMLSize_t readBytes(XMLByte* buffer, XMLSize_t count) override {
        const std::size_t got = m_in.read(reinterpret_cast<char*>(buffer), count);
        if (PLQInputStream::isEnd(got))
            return 0;
        m_position += got;
        return got;
    }

    const XMLCh* getContentType() const override { return nullptr; }

private:
    PLQInputStream& m_in;
    XMLFilePos m_position = 0;
};

} // namespace

PLQStreamInputSource::PLQStreamInputSource(PLQInputStream& in)
    : m_in(in) {}

PLQStreamInputSource::PLQStreamInputSource(PLQInputStream& in, const char* systemId)
    : InputSource(systemId)
    , m_in(in) {}

PLQStreamInputSource::~PLQStreamInputSource() = default;

xercesc::BinInputStream* PLQStreamInputSource::makeStream() const {
    return new (getMemoryManager()) StreamReader(m_in);
}
