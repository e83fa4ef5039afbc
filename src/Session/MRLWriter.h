#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>

/// Where a document is copied to.
class MRL_EXPORT MRLWriter {
public:
    MRLWriter() = default;
    virtual ~MRLWriter();
    MRLWriter(const MRLWriter&) = delete;
    MRLWriter& operator=(const MRLWriter&) = delete;

    /// Takes `size` bytes from `data`, which is not kept.
    virtual void write(const char* data, std::size_t size) = 0;
    /// Hands on what is held back. Does nothing by default.
    virtual void flush();
    /// Ends the data. Does nothing by default.
    virtual void close();
};
