#include "session/Attachments.h"

#include "Session/MRLDocumentOutput.h"
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBase64BinaryMIMEProp.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLDocumentContent.h"
#include "session/Query.h"
#include "support/FixedPeer.h"
#include "support/PeakMemory.h"
#include "support/UnpackableBytes.h"

#include "PLQStreams/PLQOutputStream.h"

#include <Poco/Net/SocketAddress.h>
#include <Poco/Net/StreamSocket.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <malloc.h>
#include <unistd.h>
#include <vector>

namespace mrl::bench {

namespace {

constexpr std::size_t s_sendBuffer = 128 * 1024;   // the toolkit's chunk for attachments
constexpr std::size_t s_receiveBuffer = 64 * 1024; // of the toolkit's reader of parts
constexpr double s_mebibyte = 1024 * 1024;

/// A temporary file, gone with the object.
class File {
public:
    explicit File(const std::string& directory)
        : m_name(directory + "/bare-XXXXXX")
        , m_descriptor(::mkstemp(m_name.data())) {
        ::unlink(m_name.c_str());
    }
    ~File() { ::close(m_descriptor); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    int descriptor() const { return m_descriptor; }

private:
    std::string m_name;
    int m_descriptor;
};

[[noreturn]] void giveUp(const char* what) {
    std::fprintf(stderr, "bench_session: %s\n", what);
    std::exit(1);
}

void writeAll(int file, const char* data, std::size_t size) {
    if (::write(file, data, size) != static_cast<ssize_t>(size))
        giveUp("the file takes no more: is the disk full?");
}

template <class Step>
Transfer measure(std::size_t size, const Step& step) {
    ::malloc_trim(0); // what others have freed must not hide what this takes
    const PeakMemory memory;
    const auto began = std::chrono::steady_clock::now();
    step();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - began;
    return {static_cast<double>(size) / s_mebibyte / time.count(), memory.mebibytes()};
}

void sendAll(Poco::Net::StreamSocket& socket, const char* data, std::size_t size) {
    for (std::size_t done = 0; done < size;)
        done += static_cast<std::size_t>(socket.sendBytes(data + done, static_cast<int>(size - done)));
}

void sendAll(Poco::Net::StreamSocket& socket, const std::string& text) {
    sendAll(socket, text.data(), text.size());
}

/// What the toolkit has received, taken as a host does that only passes it on.
class Counter : public PLQOutputStream {
public:
    void write(const char*, std::size_t length) override { m_length += length; }
    std::size_t length() const { return m_length; }

private:
    std::size_t m_length = 0;
};

} // namespace

struct LargeDocument::Stored {
    Stored(const std::string& directory, std::size_t size)
        : file(directory) {
        document.init(0, 0);
        document.setMimeType("application/octet-stream", nullptr);
        for (std::size_t done = 0; done < size; done += unpackableBytes().size()) {
            document.write(unpackableBytes().data(), unpackableBytes().size());
            writeAll(file.descriptor(), unpackableBytes().data(), unpackableBytes().size());
        }
        if (document.pcount() != size)
            giveUp("the document is incomplete: is the disk full?");
    }
    MRLDocumentOutput document;
    File file;
};

LargeDocument::LargeDocument(std::string directory, std::size_t size)
    : m_directory(std::move(directory))
    , m_size(size)
    , m_stored(std::make_unique<Stored>(m_directory, size)) {}

LargeDocument::~LargeDocument() = default;

Transfer LargeDocument::up(const MRLSOAPSession& session) const {
    const Binding call = smallQuery();
    return measure(m_size, [&] {
        session.submit(*call, {{FixedPeer::s_contentId, &m_stored->document}},
                       MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
    });
}

Transfer LargeDocument::bareUp(unsigned port, const std::string& path) const {
    std::vector<char> buffer(s_sendBuffer);
    ::lseek(m_stored->file.descriptor(), 0, SEEK_SET);
    return measure(m_size, [&] {
        Poco::Net::StreamSocket socket(
            Poco::Net::SocketAddress("127.0.0.1", static_cast<Poco::UInt16>(port)));
        sendAll(socket,
                "POST " + path + " HTTP/1.1\r\nHost: localhost\r\nTransfer-Encoding: chunked\r\n\r\n");
        for (ssize_t n = 0; (n = ::read(m_stored->file.descriptor(), buffer.data(), buffer.size())) > 0;) {
            char size[24];
            std::snprintf(size, sizeof size, "%zx\r\n", static_cast<std::size_t>(n));
            sendAll(socket, size);
            sendAll(socket, buffer.data(), static_cast<std::size_t>(n));
            sendAll(socket, "\r\n");
        }
        sendAll(socket, "0\r\n\r\n");
        if (socket.receiveBytes(buffer.data(), static_cast<int>(buffer.size())) <= 0)
            giveUp("the peer did not answer");
    });
}

Transfer LargeDocument::down(const MRLSOAPSession& session) const {
    const Binding call = smallQuery();
    const Transfer transfer =
        measure(m_size, [&] { session.submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr); });
    const auto& reply = static_cast<const MRLContentQuery_Reply&>(call->getOutputMessage());
    const auto& content = static_cast<const MRLDocumentContent&>(*reply.getResult()->at(0));
    Counter received;
    *content.getData()->getValue()->streamable() >> received;
    if (received.length() != m_size)
        giveUp("the attachment did not come whole");
    return transfer;
}

Transfer LargeDocument::bareDown(unsigned port, const std::string& path) const {
    std::vector<char> buffer(s_receiveBuffer);
    const File file(m_directory);
    return measure(m_size, [&] {
        Poco::Net::StreamSocket socket(
            Poco::Net::SocketAddress("127.0.0.1", static_cast<Poco::UInt16>(port)));
        sendAll(socket, "POST " + path + " HTTP/1.1\r\nHost: localhost\r\nContent-Length: 0\r\n\r\n");
        for (std::size_t done = 0; done < m_size;) { // the few bytes of head and framing do not matter
            const int n = socket.receiveBytes(buffer.data(), static_cast<int>(buffer.size()));
            if (n <= 0)
                giveUp("the peer sent too little");
            writeAll(file.descriptor(), buffer.data(), static_cast<std::size_t>(n));
            done += static_cast<std::size_t>(n);
        }
    });
}

} // namespace mrl::bench
