#pragma once

#include "TavelTK/detail/Channel.h"
#include "TavelTK/detail/TlsContext.h"

#include <openssl/bio.h>
#include <openssl/types.h>

#include <memory>
#include <string>
#include <sys/types.h>

namespace mrl::detail {

/// The client's side of TLS over a socket. The library reads and writes through the socket's own channel,
/// so that no write ever raises a signal.
class TlsChannel : public Channel {
public:
    /// @param host the name or address that the peer's certificate must be made out to.
    TlsChannel(std::unique_ptr<SocketChannel> socket, TlsContext context, const TlsSettings& settings,
               const std::string& host);
    /// Says good-bye to the peer, unless this is a child process with a copy of its parent's connection.
    ~TlsChannel() override;

    /// To be repeated until it has `moved`.
    Attempt handshake();

    int descriptor() const override { return m_socket->descriptor(); }
    Attempt send(std::string_view bytes) override;
    Attempt receive(char* buffer, std::size_t size) override;
    bool hasPending() const override;
    bool isSilent() override;

private:
    struct Free {
        void operator()(SSL* ssl) const;
    };
    static const BIO_METHOD* bioMethod();
    static int onBioRead(BIO* bio, char* buffer, int size);
    static int onBioWrite(BIO* bio, const char* bytes, int size);
    static int onVerify(int isGood, X509_STORE_CTX* store);
    static int onCertificateRequest(SSL* ssl, void* self);

    void judge(X509_STORE_CTX* store);
    Attempt attempt(int result, std::size_t count);
    Attempt failure(int code);

    std::unique_ptr<SocketChannel> m_socket;
    TlsContext m_context;
    const std::string m_host;
    const bool m_isChainChecked;
    const pid_t m_process;
    Attempt m_last;         // what the socket said last
    Attempt m_verdict;      // what is wrong with the peer's certificate; `moved`: nothing so far
    bool m_isAsked = false; // for a certificate of this side
    bool m_isOver = false;  // after a failure nothing more may be sent
    std::unique_ptr<SSL, Free> m_ssl;
};

} // namespace mrl::detail
