#pragma once

#include <xercesc/sax/InputSource.hpp>

class PLQInputStream;

/// Gives a byte stream to a Xerces-C parser. The stream is borrowed and read straight into the parser's
/// buffer; its exceptions pass through the parser. It can be parsed once.
class PLQStreamInputSource : public xercesc::InputSource {
public:
    explicit PLQStreamInputSource(PLQInputStream& in);
    /// @param memory of the parser, for what it owns; borrowed
    PLQStreamInputSource(PLQInputStream& in, xercesc::MemoryManager& memory);
    /// @param systemId names the input in the parser's messages
    PLQStreamInputSource(PLQInputStream& in, const char* systemId);
    ~PLQStreamInputSource() override;

    /// @return a new stream that the parser owns, over the borrowed one.
    xercesc::BinInputStream* makeStream() const override;

private:
    PLQInputStream& m_in;
};
