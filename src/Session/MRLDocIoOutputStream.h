#pragma once

#include "HBLCore/MRLExport.h"
#include "PLQStreams/PLQOutputStream.h"

class MRLDocIo;

/// Writes into the store of a MRLDocIo, behind its compression: where the packed bytes go. Borrows it.
class MRL_EXPORT MRLDocIoOutputStream : public PLQOutputStream {
public:
    MRLDocIoOutputStream() = default;
    ~MRLDocIoOutputStream() override;

    void init(MRLDocIo* docIo) { m_docIo = docIo; }

    /// @throws HBLAssertError without a MRLDocIo; PLQStreamError when the store takes less.
    void write(const char* data, std::size_t size) override;

private:
    MRLDocIo* m_docIo = nullptr; // borrowed
};
