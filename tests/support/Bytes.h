#pragma once

#include "HBLCore/HBLByteBuffer.h"
#include "PLQStreams/PLQGZIPInputStream.h"
#include "PLQStreams/PLQGZIPOutputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <string>
#include <string_view>

namespace mrl::test {

/// What `step` writes to the stream it is given.
template <class Step>
std::string written(const Step& step) {
    PLQMemoryOutputStream out(1024, 1024);
    step(out);
    return {out.bytes(), out.length()};
}

inline std::string packed(std::string_view bytes) {
    return written([&](PLQOutputStream& out) {
        PLQGZIPOutputStream gzip(out);
        gzip.write(bytes.data(), bytes.size());
        gzip.close();
    });
}

inline std::string unpacked(std::string_view bytes) {
    PLQMemoryInputStream in(bytes.data(), bytes.size());
    PLQGZIPInputStream gzip(in);
    HBLByteBuffer all;
    gzip.readFully(all, PLQInputStream::endOfStream);
    return std::string(all.view());
}

} // namespace mrl::test
