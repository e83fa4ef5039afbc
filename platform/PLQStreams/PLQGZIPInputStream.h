#pragma once

#include "PLQStreams/PLQFilterInputStream.h"

#include <cstdint>
#include <memory>

/// Unpacks gzip data: one member or several in a row; no input at all is empty data. What a read asks
/// for bounds what is unpacked at a time, however well the data was packed. It reads ahead of what
/// it hands out.
class MRL_EXPORT PLQGZIPInputStream : public PLQFilterInputStream {
public:
    PLQGZIPInputStream();
    explicit PLQGZIPInputStream(PLQInputStream& in);
    ~PLQGZIPInputStream() override;

    using PLQFilterInputStream::read;

    /// @throws PLQStreamError when the data is not gzip, is damaged or ends early; the message names
    /// the offset in the packed data. What could be unpacked before it is handed out first.
    std::size_t read(char* buffer, std::size_t count) override;

    /// Reads new data from `in`.
    void wrap(PLQInputStream& in) override;

private:
    bool fill();
    std::size_t inflateSome(char* buffer, std::size_t count);
    [[noreturn]] void fail(const char* reason) const;

    struct Inflater;
    std::unique_ptr<Inflater> m_inflater; // made by the first read
};
