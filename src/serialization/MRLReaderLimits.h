#pragma once

#include "HBLCore/MRLExport.h"

#include <cstdint>

/// What a reader takes at most from one document. All that comes from the wire is held against these,
/// and the first that is exceeded ends the parse at once with MRLException 0xa6441f8b, whose parameter
/// names the limit and its value. A host that expects more raises the value.
struct MRL_EXPORT MRLReaderLimits {
    /// Elements within elements, the envelope itself included.
    std::uint32_t elementDepth = 512;
    /// Attributes of one element, namespace declarations included.
    std::uint32_t attributesOfElement = 256;
    /// Children of one element, those that nobody knows among them.
    std::uint32_t childrenOfElement = 2'000'000;
    /// Items of one array, however many elements they come in. What an array claims to have counts for
    /// nothing.
    std::uint32_t arrayItems = 1'000'000;
    /// UTF-16 units in the text of one element.
    std::uint64_t textLength = 64ULL * 1024 * 1024;
    /// Bytes of one piece of markup: a tag with its attributes, a comment, a CDATA section.
    std::uint64_t markupLength = 16ULL * 1024 * 1024;
    /// Elements of the document.
    std::uint64_t totalElements = 10'000'000;
    /// Bytes of the document.
    std::uint64_t totalBytes = 128ULL * 1024 * 1024;
    /// Bytes that all packed attachments of one reply may unpack to, however few they come from.
    std::uint64_t unpackedBytes = 64ULL * 1024 * 1024;
    /// Beyond those: bytes unpacked for each byte received. Reports reach 50, the format ends at 1032.
    std::uint64_t unpackedRatio = 200;

    /// What readers made from now on start with. Thread-safe.
    static MRLReaderLimits getDefaults();
    static void setDefaults(const MRLReaderLimits& limits);
};
