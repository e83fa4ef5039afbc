#pragma once

#include "PLQStreams/PLQFilterInputStream.h"

class PLQOutputStream;

/// A filter that writes everything read through it to an echo target. Both streams are borrowed; the
/// target must outlive this object or its unWrap(). Nothing is copied or held back.
class PLQEchoInputStream : public PLQFilterInputStream {
public:
    PLQEchoInputStream(PLQInputStream& in, PLQOutputStream& echoTarget);

    /// Does unWrap(), if still wrapped; a failure goes unnoticed here.
    ~PLQEchoInputStream() override;

    /// @return the byte as a signed char, so that 0xFF looks like the end of the data (-1).
    int read() override;

    /// @throws HBLIllegalStateError after unWrap().
    std::size_t read(char* buffer, std::size_t count) override;

    /// Appends up to `count` bytes, for which it makes room at once.
    std::size_t read(HBLByteBuffer& buffer, std::size_t count) override;

    int canUnread() override;

    /// Flushes the target and lets go of the wrapped stream.
    /// @throws HBLIllegalStateError when nothing is wrapped.
    void unWrap() override;

private:
    void requireWrapped() const;

    PLQOutputStream* m_pEcho; // borrowed
};
