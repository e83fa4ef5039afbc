#include "soap/TrustedEnvelope.h"

#include "soap/Refusal.h"

#include "PLQStreams/PLQMemoryInputStream.h"
#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/ZORTrustedReader.h"

namespace mrl::bus {

namespace {

constexpr std::size_t pieceSize = 16384;
constexpr std::size_t mostEncrypted = 64U << 20U;
constexpr std::size_t enoughToTell = 1024;

/// What was read already, then the rest.
class Rejoined : public PLQInputStream {
public:
    Rejoined(const std::string& beginning, PLQInputStream& rest)
        : m_beginning(beginning)
        , m_rest(rest) {}

    using PLQInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override {
        if (m_given == m_beginning.size())
            return m_rest.read(buffer, count);
        const std::size_t given = m_beginning.copy(buffer, count, m_given);
        m_given += given;
        return given;
    }

private:
    const std::string& m_beginning;
    PLQInputStream& m_rest;
    std::size_t m_given = 0;
};

bool readMore(PLQInputStream& in, std::string& to) {
    const std::size_t before = to.size();
    to.resize(before + pieceSize);
    const std::size_t got = in.read(to.data() + before, pieceSize);
    to.resize(before + (PLQInputStream::isEnd(got) ? 0 : got));
    return !PLQInputStream::isEnd(got);
}

} // namespace

TrustedEnvelope::TrustedEnvelope(PLQInputStream& envelope, ZORTrustedReader& keys) {
    while (m_bytes.size() < enoughToTell && readMore(envelope, m_bytes)) {
    }
    if (!ZORTrustedReader::isProtected(m_bytes)) {
        m_clear = std::make_unique<Rejoined>(m_bytes, envelope);
        return;
    }
    while (m_bytes.size() <= mostEncrypted && readMore(envelope, m_bytes)) {
    }
    try {
        m_bytes = keys.open(m_bytes).text;
    } catch (const ZORError& e) {
        throw Refusal("busNotTrusted", e.getMessage());
    }
    m_clear = std::make_unique<PLQMemoryInputStream>(m_bytes.data(), m_bytes.size());
    m_trusted = true;
}

} // namespace mrl::bus
