#pragma once

#include "PLQStreams/PLQFilterOutputStream.h"

#include <array>

/// Writes UTF-8 text as XML character data, so that reading the XML gives the same text back.
///
/// & < > " ' become their entities, and carriage return becomes "&#13;", which an XML parser would
/// otherwise turn into a line feed. What XML 1.0 cannot hold in any form becomes U+FFFD, the replacement
/// character: control characters other than tab, line feed and carriage return, U+FFFE, U+FFFF, and
/// bytes that are not UTF-8 (one U+FFFD for each broken sequence). So the result is always well-formed.
///
/// Text may be cut anywhere between writes; the beginning of a character is held back until the rest
/// comes or the text ends: by close(), unWrap(), wrap() or destruction.
class MRL_EXPORT PLQXmlEncodeOutputStream : public PLQFilterOutputStream {
public:
    PLQXmlEncodeOutputStream() = default;
    explicit PLQXmlEncodeOutputStream(PLQOutputStream& downstream);

    /// Ends the text and leaves the downstream open; a failure to write a last U+FFFD goes unnoticed.
    ~PLQXmlEncodeOutputStream() override;

    void write(const char* data, std::size_t length) override;

    /// Ends the text and closes the downstream.
    void close() override;

    /// Ends the text for the downstream so far, if any, then begins anew.
    void wrap(PLQOutputStream& downstream) override;

    /// Ends the text, leaves the downstream open and lets go of it.
    void unWrap() override;

private:
    const char* completeHeld(const char* data, const char* end);
    void finish();

    std::array<char, 4> m_held{}; // the beginning of a character that was cut
    std::size_t m_heldLength = 0;
};
