#pragma once

#include "HBLIDOM/DomWriter.h"

class PLQOutputStream;

/// Writes to a byte stream: memory, a file, a message.
class MRL_EXPORT DomStreamWriter : public DomWriter {
public:
    /// @param out borrowed; it is neither flushed nor closed of the writer's own accord.
    explicit DomStreamWriter(PLQOutputStream& out);
    ~DomStreamWriter() override;

    using DomWriter::write;
    void write(const char* s, int length) override;
    void flush() override;

private:
    PLQOutputStream& m_out;
};
