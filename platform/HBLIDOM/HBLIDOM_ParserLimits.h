#pragma once

#include <cstdint>

/// What HBLIDOM_Parser takes at most from one document; the first that is exceeded ends the parse at
/// once. The defaults are for configuration files and pieces of messages.
struct HBLIDOM_ParserLimits {
    /// Elements within elements.
    std::uint32_t elementDepth = 512;
    /// Attributes of one element, namespace declarations included.
    std::uint32_t attributesOfElement = 256;
    /// Elements, attributes, texts, comments and processing instructions together. A node takes some
    /// 100 bytes of memory and its text.
    std::uint64_t totalNodes = 2'000'000;
    /// Bytes of the document.
    std::uint64_t totalBytes = 64ULL * 1024 * 1024;
};
