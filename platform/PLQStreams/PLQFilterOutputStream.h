#pragma once

#include "PLQStreams/PLQOutputStream.h"

/// An output stream that works on the way to another one, its downstream, which it borrows: the
/// downstream must live until it is unwrapped or was used for the last time. As it stands, a filter
/// hands everything on unchanged.
class MRL_EXPORT PLQFilterOutputStream : public PLQOutputStream {
public:
    PLQFilterOutputStream() = default;
    explicit PLQFilterOutputStream(PLQOutputStream& downstream);
    ~PLQFilterOutputStream() override;

    /// @throws HBLAssertError when there is no downstream.
    void write(const char* data, std::size_t length) override;

    /// Flushes the downstream, if there is one.
    void flush() override;

    /// Closes the downstream, if there is one.
    void close() override;

    /// Writes to `downstream` from now on.
    virtual void wrap(PLQOutputStream& downstream);

    /// Lets go of the downstream without touching it. Filters that hold data back write it first.
    virtual void unWrap();

protected:
    PLQOutputStream* p_downstream = nullptr; // borrowed
};
