#pragma once

#include "HBLCore/MRLExport.h"
#include "PLQStreams/PLQOutputStream.h"

class MRLDocIo;

/// Writes into a MRLDocIo, which it borrows. Without one, what is written is dropped.
class MRL_EXPORT PLQDocIoOutputStream : public PLQOutputStream {
public:
    PLQDocIoOutputStream() = default;
    ~PLQDocIoOutputStream() override;

    void init(MRLDocIo* docIo) { m_docIo = docIo; }

    /// @throws PLQStreamError when the document takes less.
    void write(const char* text, std::size_t size) override;

    /// Writes a text; nothing for null.
    PLQDocIoOutputStream& operator<<(const char* text);

private:
    MRLDocIo* m_docIo = nullptr; // borrowed
};
