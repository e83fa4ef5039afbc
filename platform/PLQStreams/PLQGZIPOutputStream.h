#pragma once

#include "PLQStreams/PLQFilterOutputStream.h"

#include <memory>

/// Packs its data in the gzip format. Nothing at all goes downstream before the first byte is written,
/// so closing an unused stream leaves the downstream empty. flush() does not force packed data out,
/// which would cost the compression of whoever flushes every line.
class MRL_EXPORT PLQGZIPOutputStream : public PLQFilterOutputStream {
public:
    PLQGZIPOutputStream();
    explicit PLQGZIPOutputStream(PLQOutputStream& downstream);

    /// Ends the data like unWrap() and ignores a failure; when an exception passes by, leaves the data
    /// visibly truncated instead.
    ~PLQGZIPOutputStream() override;

    /// @throws HBLIllegalStateError after close(), or after a write that failed.
    void write(const char* data, std::size_t length) override;

    /// Ends the data, writes the trailer, and closes the downstream.
    void close() override;

    /// Ends the data for the downstream so far, if any, then begins anew.
    void wrap(PLQOutputStream& downstream) override;

    /// Ends the data, leaves the downstream open and lets go of it.
    void unWrap() override;

private:
    void deflateAll(int flush);
    void finish();

    struct Deflater;
    std::unique_ptr<Deflater> m_deflater; // made by the first byte
    bool m_finished = false;              // the trailer is written
    int m_exceptionsAtBirth;              // exceptions on their way when the stream was made
};
