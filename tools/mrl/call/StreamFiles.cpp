#include "call/StreamFiles.h"

#include "Toolkit/MRL_Streamable.h"

#include "HBLCore/HBLBase64.h"
#include "PLQStreams/PLQFileOutputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <cctype>
#include <cerrno>
#include <fstream>
#include <stdexcept>
#include <string_view>
#include <system_error>

namespace mrl::tool {

namespace {

constexpr std::size_t pieceSize = 65536;

/// The ending of a file that begins with `head`.
std::string_view endingOf(std::string_view head, bool isText) {
    if (head.starts_with("%PDF-"))
        return ".pdf";
    if (head.starts_with("<!DOCTYPE html") || head.starts_with("<html"))
        return ".html";
    if (head.starts_with("<?xml"))
        return ".xml";
    return isText ? ".txt" : ".bin";
}

/// Keeps what a stream begins with, and passes everything on.
class HeadKeeper : public PLQOutputStream {
public:
    explicit HeadKeeper(PLQOutputStream& next)
        : m_next(next) {}

    void write(const char* data, std::size_t length) override {
        constexpr std::size_t enough = 16;
        m_head.append(data, std::min(length, enough - std::min(enough, m_head.size())));
        m_next.write(data, length);
    }
    const std::string& head() const { return m_head; }

private:
    PLQOutputStream& m_next;
    std::string m_head;
};

/// "result.details[0].output" as a name of a file: "result.details.0.output".
std::string fileName(const std::string& path) {
    std::string name;
    for (const char c : path)
        if (std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.' || c == '-' || c == '_')
            name += c;
        else if (c == '[')
            name += '.';
    return name;
}

} // namespace

Json StreamsInline::keep(const MRL_Streamable& stream, const std::string& /*path*/, bool isText) {
    PLQMemoryOutputStream out(pieceSize, pieceSize);
    stream >> out;
    const std::string_view bytes(out.bytes(), static_cast<std::size_t>(out.length()));
    if (isText)
        return bytes;
    return HBLBase64Encoded(bytes);
}

StreamFiles::StreamFiles(std::filesystem::path directory)
    : m_directory(std::move(directory)) {
    const std::filesystem::path trial = m_directory / ".mrl-call.part";
    std::error_code failure;
    std::filesystem::create_directories(m_directory, failure);
    if (!failure && !std::ofstream(trial, std::ios::app))
        failure.assign(errno, std::generic_category());
    if (failure)
        throw std::runtime_error("the directory '" + m_directory.string() +
                                 "' takes no files: " + failure.message());
    std::filesystem::remove(trial, failure);
}

Json StreamFiles::keep(const MRL_Streamable& stream, const std::string& path, bool isText) {
    const std::filesystem::path part = m_directory / (fileName(path) + ".part");
    PLQFileOutputStream file(part.string());
    HeadKeeper head(file);
    stream >> head;
    file.close();
    const std::string_view ending = endingOf(head.head(), isText);
    std::filesystem::path target = m_directory / (fileName(path) + std::string(ending));
    for (int i = 2; std::filesystem::exists(target); ++i)
        target = m_directory / (fileName(path) + "-" + std::to_string(i) + std::string(ending));
    std::filesystem::rename(part, target);
    return Json{{"@file", target.string()}};
}

} // namespace mrl::tool
