#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>

class HBLByteBuffer;

/// A source of bytes. One thread at a time, but for cancel().
///
/// The end of the data shows as a read of endOfStream bytes, or of 0 bytes where some were asked
/// for: whoever reads takes either for the end. The streams of this library give endOfStream.
/// Failures are exceptions.
class MRL_EXPORT PLQInputStream {
public:
    /// The largest size_t, in place of a number of bytes: there are no more.
    static constexpr std::size_t endOfStream = static_cast<std::size_t>(-1);

    PLQInputStream() = default;
    virtual ~PLQInputStream();

    PLQInputStream(const PLQInputStream&) = delete;
    PLQInputStream& operator=(const PLQInputStream&) = delete;

    /// One byte.
    /// @return 0 to 255, or -1 at the end.
    virtual int read();

    /// Up to `count` bytes, at least one; waits only for the first.
    /// @return the number of bytes put at `buffer`, or 0 or endOfStream at the end.
    virtual std::size_t read(char* buffer, std::size_t count) = 0;

    /// Appends up to `count` bytes, with one read, to `buffer`.
    /// @return as read(char*, std::size_t).
    virtual std::size_t read(HBLByteBuffer& buffer, std::size_t count);

    /// Reads until there are `count` bytes or the data ends.
    /// @return the number of bytes, less than `count` only at the end; endOfStream when none came.
    virtual std::size_t readFully(char* buffer, std::size_t count);

    /// Appends to `buffer` until `count` bytes came or the data ends.
    /// @return as readFully(char*, std::size_t).
    virtual std::size_t readFully(HBLByteBuffer& buffer, std::size_t count);

    /// Gives up what stands behind the stream. Does nothing by default.
    virtual void close();

    /// @return 1 when unread() is supported; 0 by default.
    virtual int canUnread();

    /// Puts bytes back in front of the next read.
    /// @throws HBLIllegalStateError "not implemented", unless a stream offers it.
    virtual void unread(const char* data, std::size_t length);

    /// @return 1 when a read can be given a time limit; 0 by default.
    virtual int canTimeout();

    /// The longest that one read waits, in milliseconds; 0 waits for ever.
    /// @throws HBLIllegalStateError by default, since canTimeout() is 0.
    virtual void setTimeout(int milliseconds);

    /// @return the limit in milliseconds; 0, by default, for none.
    virtual int getTimeout();

    /// @return 1 when a waiting read can be cancelled; 0 by default.
    virtual int canCancel();

    /// Arms (1) or disarms (0) cancel().
    /// @throws HBLIllegalStateError by default, since canCancel() is 0.
    virtual void setCancel(int armed);

    /// @return 1 when cancel() is armed; 0 by default.
    virtual int getCancel();

    /// Ends a read that waits on another thread.
    /// @throws HBLIllegalStateError by default, since canCancel() is 0.
    virtual void cancel();

    /// Whether a result of read() or readFully() means that there are no more bytes.
    static constexpr bool isEnd(std::size_t result) { return result == 0 || result == endOfStream; }
};
