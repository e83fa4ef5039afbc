#pragma once

#include "PLQStreams/PLQInputStream.h"

/// An input stream that works on what comes from another one, which it borrows: the wrapped stream
/// must live until it is unwrapped or was used for the last time. As it stands, a filter hands on
/// what it reads unchanged. close() and the operations for time limits and cancelling go to the
/// wrapped stream; without one they act like those of a stream that offers none.
class MRL_EXPORT PLQFilterInputStream : public PLQInputStream {
public:
    PLQFilterInputStream() = default;
    explicit PLQFilterInputStream(PLQInputStream& in);
    ~PLQFilterInputStream() override;

    using PLQInputStream::read;

    /// @throws HBLAssertError when nothing is wrapped.
    std::size_t read(char* buffer, std::size_t count) override;

    void close() override;
    int canTimeout() override;
    void setTimeout(int milliseconds) override;
    int getTimeout() override;
    int canCancel() override;
    void setCancel(int armed) override;
    int getCancel() override;
    void cancel() override;

    /// Reads from `in` from now on.
    virtual void wrap(PLQInputStream& in);

    /// Lets go of the wrapped stream without touching it.
    virtual void unWrap();

protected:
    PLQInputStream* m_pWrapped = nullptr; // borrowed
};
