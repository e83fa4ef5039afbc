#include "PLQStreams/PLQInputStream.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"

#include <algorithm>

namespace {

// Room is made for this much at a time, so that a caller may ask for "everything" and pays only for
// what comes.
constexpr std::size_t s_pieceSize = std::size_t{64} * 1024;

} // namespace

PLQInputStream::~PLQInputStream() = default;

int PLQInputStream::read() {
    char c = 0;
    return read(&c, 1) == 1 ? static_cast<unsigned char>(c) : -1;
}

std::size_t PLQInputStream::read(HBLByteBuffer& buffer, std::size_t count) {
    const std::size_t piece = std::min(count, s_pieceSize);
    buffer.reserve(piece);
    const std::size_t got = read(buffer.str() + buffer.pcount(), piece);
    if (!isEnd(got))
        buffer.setLength(buffer.pcount() + got);
    return got;
}

std::size_t PLQInputStream::readFully(char* buffer, std::size_t count) {
    std::size_t total = 0;
    while (total < count) {
        const std::size_t got = read(buffer + total, count - total);
        if (isEnd(got))
            return total == 0 ? endOfStream : total;
        total += got;
    }
    return total;
}

std::size_t PLQInputStream::readFully(HBLByteBuffer& buffer, std::size_t count) {
    std::size_t total = 0;
    while (total < count) {
        const std::size_t got = read(buffer, std::min(count - total, s_pieceSize));
        if (isEnd(got))
            return total == 0 ? endOfStream : total;
        total += got;
    }
    return total;
}

void PLQInputStream::close() {}

int PLQInputStream::canUnread() {
    return 0;
}

void PLQInputStream::unread(const char* /*data*/, std::size_t /*length*/) {
    HBL_THROW(HBLIllegalStateError(0, "not implemented"), "PLQInputStream::unread");
}

int PLQInputStream::canTimeout() {
    return 0;
}

void PLQInputStream::setTimeout(int /*milliseconds*/) {
    HBL_THROW(HBLIllegalStateError(0, "This stream has no time limit; ask canTimeout() first."),
              "PLQInputStream::setTimeout");
}

int PLQInputStream::getTimeout() {
    return 0;
}

int PLQInputStream::canCancel() {
    return 0;
}

void PLQInputStream::setCancel(int /*armed*/) {
    HBL_THROW(HBLIllegalStateError(0, "This stream cannot be cancelled; ask canCancel() first."),
              "PLQInputStream::setCancel");
}

int PLQInputStream::getCancel() {
    return 0;
}

void PLQInputStream::cancel() {
    HBL_THROW(HBLIllegalStateError(0, "This stream cannot be cancelled; ask canCancel() first."),
              "PLQInputStream::cancel");
}
