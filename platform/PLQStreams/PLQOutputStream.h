#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>

/// A sink of bytes. One thread at a time.
///
/// Every operation either does all that it was asked or throws; there are no short writes.
/// Destructors never throw: call close() (or unWrap() on a filter) to hear of a late failure.
class MRL_EXPORT PLQOutputStream {
public:
    PLQOutputStream() = default;
    virtual ~PLQOutputStream();

    PLQOutputStream(const PLQOutputStream&) = delete;
    PLQOutputStream& operator=(const PLQOutputStream&) = delete;

    /// Takes `length` bytes from `data`, which is not kept.
    virtual void write(const char* data, std::size_t length) = 0;

    /// Hands on what the stream holds back, as far as its format allows. Does nothing by default.
    virtual void flush();

    /// Ends the data: nothing may be written afterwards. Does nothing by default.
    virtual void close();
};
