#include "traffic/Redaction.h"

#include "traffic/Directories.h"
#include "traffic/Envelope.h"
#include "traffic/XmlBytes.h"

#include "HBLCore/HBLThrowable.h"
#include "PLQStreams/PLQFileOutputStream.h"
#include "PLQStreams/PLQGZIPInputStream.h"
#include "PLQStreams/PLQGZIPOutputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <array>
#include <optional>

namespace mrl::tool {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view GZIP = "\x1f\x8b";
constexpr std::size_t LARGEST_UNPACKED = std::size_t{1} << 30;

/// Nothing for data that is damaged, or more than anyone wants to look through.
std::optional<std::string> unpacked(std::string_view packed) {
    try {
        PLQMemoryInputStream in(packed.data(), packed.size());
        PLQGZIPInputStream gzip(in);
        std::string bytes;
        std::array<char, 16384> piece;
        for (;;) {
            const std::size_t length = gzip.read(piece.data(), piece.size());
            if (PLQInputStream::isEnd(length))
                return bytes;
            if (bytes.size() + length > LARGEST_UNPACKED)
                return std::nullopt;
            bytes.append(piece.data(), length);
        }
    } catch (const HBLThrowable&) {
        return std::nullopt;
    }
}

std::string packed(const std::string& bytes) {
    PLQMemoryOutputStream out(bytes.size() / 4 + 1024, 65536);
    PLQGZIPOutputStream gzip(out);
    gzip.write(bytes.data(), bytes.size());
    gzip.close();
    return {out.bytes(), out.length()};
}

/// Why a search may not see all that a file says; empty when it does.
std::string blindSpot(std::string_view bytes) {
    if (bytes.starts_with(GZIP))
        return "it is packed with gzip, and damaged or above 1 GiB";
    if (bytes.starts_with("%PDF") || bytes.starts_with("PK\x03\x04"))
        return "what it holds is packed in its own way";
    return {};
}

class Redactor {
public:
    Redactor(const Recording& recording, Secrets& secrets)
        : m_recording(recording)
        , m_secrets(secrets) {}

    Redacted run(const fs::path& into) {
        NewDirectory directory(into);
        for (const RecordedCall& call : m_recording.calls)
            for (const fs::path& path : call.files())
                learn(bytesOf(path));
        for (const RecordedCall& call : m_recording.calls) {
            fs::create_directories(directory.path() / call.session);
            for (const fs::path& path : call.files())
                copy(path, directory.path() / call.session / path.filename());
        }
        for (const fs::path& path : m_recording.strangers)
            m_result.leftOut.push_back(path.filename());
        directory.finish();
        m_result.masks = m_secrets.masked();
        return std::move(m_result);
    }

private:
    void learn(const std::string& bytes) {
        if (looksLikeXml(bytes)) {
            m_secrets.learn(bytes);
        } else if (bytes.starts_with(GZIP)) {
            if (const auto content = unpacked(bytes); content && looksLikeXml(*content))
                m_secrets.learn(*content);
        }
    }

    std::string masked(const std::string& bytes) {
        if (looksLikeXml(bytes))
            return m_secrets.maskXml(bytes);
        if (bytes.starts_with(GZIP)) {
            if (const auto content = unpacked(bytes)) {
                const std::string result = masked(*content);
                return result == *content ? bytes : packed(result);
            }
        }
        const bool isBinary = bytes.find('\0') != bytes.npos || !blindSpot(bytes).empty();
        return m_secrets.maskText(bytes, isBinary);
    }

    void copy(const fs::path& from, const fs::path& to) {
        const std::string before = bytesOf(from);
        const std::string after = masked(before);
        PLQFileOutputStream out(to.string(), 0);
        out.write(after.data(), after.size());
        out.close();
        ++m_result.files;
        RecordedFileName name;
        const bool isEnvelope =
            name.parse(from.filename().native()) &&
            (name.kind == RecordedFileName::request || name.kind == RecordedFileName::reply);
        std::string reason = before.starts_with(GZIP) && unpacked(before) ? "" : blindSpot(before);
        if (isEnvelope && !before.empty() && !looksLikeXml(before))
            reason = "it is encrypted, or in an encoding that is not searched";
        if (!reason.empty())
            m_result.unsearched.push_back(to.filename().string() + ": " + reason);
    }

    const Recording& m_recording;
    Secrets& m_secrets;
    Redacted m_result;
};

} // namespace

Redacted redact(const Recording& recording, Secrets& secrets, const fs::path& into) {
    try {
        return Redactor(recording, secrets).run(into);
    } catch (const HBLThrowable& e) { // of the file that is written
        throw TrafficError(e.getMessage());
    } catch (const fs::filesystem_error& e) {
        throw TrafficError(e.what());
    }
}

} // namespace mrl::tool
