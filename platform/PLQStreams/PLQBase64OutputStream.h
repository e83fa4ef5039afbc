#pragma once

#include "PLQStreams/PLQFilterOutputStream.h"

#include <array>

/// Writes its data as standard Base64, with padding and without line breaks. One or two bytes are held
/// back until a third comes or the data ends: by close(), unWrap(), wrap() or destruction.
class MRL_EXPORT PLQBase64OutputStream : public PLQFilterOutputStream {
public:
    PLQBase64OutputStream() = default;
    explicit PLQBase64OutputStream(PLQOutputStream& downstream);

    /// Ends the data and leaves the downstream open. A failure goes unnoticed here: use unWrap().
    ~PLQBase64OutputStream() override;

    void write(const char* data, std::size_t length) override;

    /// Ends the data and closes the downstream.
    void close() override;

    /// Ends the data for the downstream so far, if any, then begins anew.
    void wrap(PLQOutputStream& downstream) override;

    /// Ends the data, leaves the downstream open and lets go of it.
    void unWrap() override;

private:
    void encode(const char* data, std::size_t length);
    void finish();

    std::array<char, 3> m_held{};
    std::size_t m_heldLength = 0; // 0 to 2 between writes
};
