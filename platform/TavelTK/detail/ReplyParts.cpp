#include "TavelTK/detail/ReplyParts.h"

#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/Inflater.h"
#include "TavelTK/detail/ReplyType.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace mrl::detail {

namespace {

constexpr std::int64_t s_earlyPartCost = 512; // of a part without bytes

/// A content id without the angle brackets that some peers leave out.
std::string_view bare(std::string_view id) {
    const bool isFramed = id.size() >= 2 && id.front() == '<' && id.back() == '>';
    return isFramed ? id.substr(1, id.size() - 2) : id;
}

std::string_view valueOf(const Headers& headers, std::string_view name) {
    const std::string* const value = headers.find(name);
    return value ? std::string_view(*value) : std::string_view();
}

/// The part that is on the wire.
class WirePart : public ByteSource {
public:
    explicit WirePart(MultipartReader& reader)
        : m_reader(reader) {}
    std::size_t read(char* buffer, std::size_t size) override { return m_reader.read(buffer, size); }

private:
    MultipartReader& m_reader;
};

/// A part that was kept.
class KeptPart : public ByteSource {
public:
    explicit KeptPart(std::string bytes)
        : m_bytes(std::move(bytes)) {}
    std::size_t read(char* buffer, std::size_t size) override {
        const std::size_t count = std::min(size, m_bytes.size() - m_begin);
        std::memcpy(buffer, m_bytes.data() + m_begin, count);
        m_begin += count;
        return count;
    }

private:
    const std::string m_bytes;
    std::size_t m_begin = 0;
};

// The envelope is a part too, and no attachment.
std::int64_t maxParts(const SessionOptions& options) {
    return options.maxParts == 0 || options.maxParts == INT64_MAX ? 0 : options.maxParts + 1;
}

} // namespace

ReplyParts::ReplyParts(ReplyBody& body, Wire& wire, std::string_view boundary, std::string_view start)
    : m_body(body)
    , m_wire(wire)
    , m_start(bare(start))
    , m_reader(body, boundary, wire.options().maxHeaderBytes, maxParts(wire.options()),
               [this](MultipartReader::Fault fault, const std::string& cause) {
                   if (fault == MultipartReader::Fault::endsTooSoon && m_body.endsWithConnection())
                       m_wire.broke(cause);
                   m_wire.fail(fault == MultipartReader::Fault::tooLarge ? TavelTKError::replyTooLarge
                                                                         : TavelTKError::badMultipart,
                               TavelTKPhase::readReply, cause);
               }) {}

bool ReplyParts::nextPart() {
    if (!m_reader.next())
        return false;
    const std::string_view id = bare(valueOf(m_reader.headers(), "Content-ID"));
    if (!id.empty() && !m_ids.insert(std::hash<std::string_view>()(id)).second)
        m_wire.fail(TavelTKError::badMultipart, TavelTKPhase::readReply,
                    "two parts have the content id '" + printable(id) + "'");
    return true;
}

void ReplyParts::keepPart() {
    const std::int64_t limit = m_wire.options().maxEarlyBytes;
    Early early{m_reader.headers(), {}};
    m_earlyBytes += s_earlyPartCost;
    for (const auto& [name, value] : early.headers.lines())
        m_earlyBytes += static_cast<std::int64_t>(name.size() + value.size());
    char piece[4096];
    for (std::size_t count = 1; count != 0;) {
        if (m_earlyBytes > limit)
            m_wire.fail(TavelTKError::replyTooLarge, TavelTKPhase::readReply,
                        "the parts before the envelope '" + printable(m_start) + "' are longer than " +
                            std::to_string(limit) + " bytes (max-early-bytes)");
        count = m_reader.read(piece, sizeof piece);
        early.bytes.append(piece, count);
        m_earlyBytes += static_cast<std::int64_t>(count);
    }
    m_early.push_back(std::move(early));
}

ByteSource& ReplyParts::envelope() {
    for (;;) {
        if (!nextPart())
            m_wire.fail(TavelTKError::badMultipart, TavelTKPhase::readReply,
                        m_early.empty() ? "it has no parts"
                                        : "no part has the content id '" + printable(m_start) +
                                              "' that its type names as the start");
        if (m_start.empty() || bare(valueOf(m_reader.headers(), "Content-ID")) == m_start)
            break;
        keepPart();
    }
    const std::string* const type = m_reader.headers().find("Content-Type");
    if (!type || !ReplyType::checkXml(*type, m_wire))
        m_wire.fail(TavelTKError::notSoapReply, TavelTKPhase::readReply,
                    "the envelope's content type is " + (type ? "'" + printable(*type) + "'" : "not stated"));
    open(m_reader.headers(), std::make_unique<WirePart>(m_reader), false);
    return *m_source;
}

bool ReplyParts::next() {
    if (!m_early.empty()) {
        Early early = std::move(m_early.front());
        m_early.pop_front();
        open(std::move(early.headers), std::make_unique<KeptPart>(std::move(early.bytes)), true);
        return true;
    }
    if (!nextPart())
        return false;
    open(m_reader.headers(), std::make_unique<WirePart>(m_reader), true);
    return true;
}

RefuseCoding ReplyParts::refusal() const {
    const std::string id = printable(valueOf(m_headers, "Content-ID"));
    return [this, id](bool isTooLarge, const std::string& cause) {
        m_wire.fail(isTooLarge ? TavelTKError::replyTooLarge : TavelTKError::badAttachment,
                    TavelTKPhase::readReply, "part '" + id + "': " + cause);
    };
}

void ReplyParts::open(Headers headers, std::unique_ptr<ByteSource> raw, bool isAttachment) {
    m_headers = std::move(headers);
    m_source = std::move(raw);
    m_isDecoded = m_isInflated = false;
    const std::string_view coding = valueOf(m_headers, "Content-Transfer-Encoding");
    static constexpr std::array<std::string_view, 4> s_plain{"", "binary", "8bit", "7bit"};
    const auto isCoding = [&](std::string_view name) { return sameText(coding, name); };
    if (std::ranges::none_of(s_plain, isCoding)) {
        if (!sameText(coding, "base64") && !sameText(coding, "quoted-printable"))
            m_wire.fail(TavelTKError::unsupported, TavelTKPhase::readReply,
                        "the content transfer encoding '" + printable(coding) + "' of a part");
        m_source = PartDecoder::ofTransferEncoding(coding, std::move(m_source), refusal());
        m_isDecoded = true;
    }
    const SessionOptions& options = m_wire.options();
    const std::string_view packing = valueOf(m_headers, "Content-Encoding");
    const bool isPacked = sameText(packing, "gzip") || sameText(packing, "x-gzip");
    // Whoever parses the envelope knows no packing, so it is always taken off there.
    if (isPacked && (!isAttachment || options.inflateAttachments != 0)) {
        m_source = std::make_unique<Inflater>(std::move(m_source), options.maxInflatedBytes,
                                              options.maxInflateRatio, refusal());
        m_isDecoded = m_isInflated = true;
    }
}

} // namespace mrl::detail
