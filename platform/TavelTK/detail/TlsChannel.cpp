#include "TavelTK/detail/TlsChannel.h"

#include "HBLCore/HBLFailure.h"
#include "TavelTK/detail/Failure.h"

#include <Poco/Net/IPAddress.h>
#include <openssl/err.h>
#include <openssl/ssl.h>
#include <openssl/x509v3.h>

#include <algorithm>
#include <climits>
#include <new>
#include <unistd.h>

namespace mrl::detail {

namespace {

bool isAddress(const std::string& host) {
    Poco::Net::IPAddress address;
    return Poco::Net::IPAddress::tryParse(host, address);
}

std::string nameOf(const X509_NAME* name) {
    std::string text(256, '\0');
    X509_NAME_oneline(name, text.data(), static_cast<int>(text.size()));
    return printable(text.c_str());
}

TavelTKError errorOf(int verifyError) {
    switch (verifyError) {
    case X509_V_ERR_CERT_HAS_EXPIRED:
    case X509_V_ERR_CERT_NOT_YET_VALID: return TavelTKError::certificateExpired;
    case X509_V_ERR_HOSTNAME_MISMATCH:
    case X509_V_ERR_IP_ADDRESS_MISMATCH: return TavelTKError::certificateWrongHost;
    case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT:
    case X509_V_ERR_UNABLE_TO_GET_ISSUER_CERT_LOCALLY:
    case X509_V_ERR_UNABLE_TO_VERIFY_LEAF_SIGNATURE:
    case X509_V_ERR_DEPTH_ZERO_SELF_SIGNED_CERT:
    case X509_V_ERR_SELF_SIGNED_CERT_IN_CHAIN:
    case X509_V_ERR_CERT_SIGNATURE_FAILURE: // another authority of the same name
    case X509_V_ERR_CERT_UNTRUSTED: return TavelTKError::certificateUntrusted;
    default: return TavelTKError::certificateRefused;
    }
}

/// Alerts by which a peer turns down the certificate of this side, or its lack.
bool isAboutCertificate(int reason) {
    switch (reason) {
    case SSL_R_SSLV3_ALERT_BAD_CERTIFICATE:
    case SSL_R_SSLV3_ALERT_UNSUPPORTED_CERTIFICATE:
    case SSL_R_SSLV3_ALERT_CERTIFICATE_REVOKED:
    case SSL_R_SSLV3_ALERT_CERTIFICATE_EXPIRED:
    case SSL_R_SSLV3_ALERT_CERTIFICATE_UNKNOWN:
    case SSL_R_TLSV1_ALERT_UNKNOWN_CA:
    case SSL_R_TLSV1_ALERT_ACCESS_DENIED:
    case SSL_R_TLSV13_ALERT_CERTIFICATE_REQUIRED: return true;
    default: return false;
    }
}

long onBioControl(BIO*, int command, long, void*) {
    return command == BIO_CTRL_FLUSH || command == BIO_CTRL_PUSH || command == BIO_CTRL_POP ? 1 : 0;
}

} // namespace

void TlsChannel::Free::operator()(SSL* ssl) const {
    SSL_free(ssl);
}

const BIO_METHOD* TlsChannel::bioMethod() {
    static BIO_METHOD* const s_method = [] {
        BIO_METHOD* const method = BIO_meth_new(BIO_TYPE_SOURCE_SINK | BIO_get_new_index(), "mrl socket");
        if (method) {
            BIO_meth_set_read(method, &TlsChannel::onBioRead);
            BIO_meth_set_write(method, &TlsChannel::onBioWrite);
            BIO_meth_set_ctrl(method, &onBioControl);
        }
        return method;
    }();
    return s_method;
}

TlsChannel::TlsChannel(std::unique_ptr<SocketChannel> socket, TlsContext context, const TlsSettings& settings,
                       const std::string& host)
    : m_socket(std::move(socket))
    , m_context(std::move(context))
    , m_host(host.ends_with('.') ? host.substr(0, host.size() - 1) : host)
    , m_isChainChecked(settings.verifyCertificate != 0)
    , m_process(::getpid())
    , m_ssl(SSL_new(m_context.get())) {
    BIO* const bio = m_ssl && bioMethod() ? BIO_new(bioMethod()) : nullptr;
    if (!bio)
        throw std::bad_alloc();
    BIO_set_data(bio, this);
    BIO_set_init(bio, 1);
    SSL_set_bio(m_ssl.get(), bio, bio);
    SSL_set_ex_data(m_ssl.get(), 0, this);
    SSL_set_verify(m_ssl.get(), m_isChainChecked || settings.verifyHost ? SSL_VERIFY_PEER : SSL_VERIFY_NONE,
                   &TlsChannel::onVerify);
    SSL_set_cert_cb(m_ssl.get(), &TlsChannel::onCertificateRequest, this);

    const bool isNumeric = isAddress(m_host);
    std::string name = m_host;
    bool isSet = isNumeric || SSL_ctrl(m_ssl.get(), SSL_CTRL_SET_TLSEXT_HOSTNAME, TLSEXT_NAMETYPE_host_name,
                                       name.data()) == 1;
    if (settings.verifyHost) {
        SSL_set_hostflags(m_ssl.get(), X509_CHECK_FLAG_NO_PARTIAL_WILDCARDS);
        X509_VERIFY_PARAM* const expected = SSL_get0_param(m_ssl.get());
        isSet = isSet && (isNumeric ? X509_VERIFY_PARAM_set1_ip_asc(expected, m_host.c_str())
                                    : SSL_set1_host(m_ssl.get(), m_host.c_str())) == 1;
    }
    if (!isSet)
        throw std::bad_alloc();
}

TlsChannel::~TlsChannel() {
    if (m_isOver || m_process != ::getpid() || !SSL_is_init_finished(m_ssl.get()))
        return;
    ERR_clear_error();
    SSL_shutdown(m_ssl.get());
    ERR_clear_error();
}

int TlsChannel::onBioRead(BIO* bio, char* buffer, int size) {
    auto& self = *static_cast<TlsChannel*>(BIO_get_data(bio));
    BIO_clear_retry_flags(bio);
    try {
        self.m_last = self.m_socket->receive(buffer, static_cast<std::size_t>(size));
    } catch (...) {
        self.m_last = {Attempt::failed, 0, {}, {}};
    }
    if (self.m_last.state == Attempt::wantsInput)
        BIO_set_retry_read(bio);
    if (self.m_last.state == Attempt::closed)
        return 0;
    return self.m_last.state == Attempt::moved ? static_cast<int>(self.m_last.count) : -1;
}

int TlsChannel::onBioWrite(BIO* bio, const char* bytes, int size) {
    auto& self = *static_cast<TlsChannel*>(BIO_get_data(bio));
    BIO_clear_retry_flags(bio);
    try {
        self.m_last = self.m_socket->send({bytes, static_cast<std::size_t>(size)});
    } catch (...) {
        self.m_last = {Attempt::failed, 0, {}, {}};
    }
    if (self.m_last.state == Attempt::wantsRoom)
        BIO_set_retry_write(bio);
    return self.m_last.state == Attempt::moved ? static_cast<int>(self.m_last.count) : -1;
}

int TlsChannel::onVerify(int isGood, X509_STORE_CTX* store) {
    if (isGood)
        return 1;
    const auto* const ssl =
        static_cast<SSL*>(X509_STORE_CTX_get_ex_data(store, SSL_get_ex_data_X509_STORE_CTX_idx()));
    auto& self = *static_cast<TlsChannel*>(SSL_get_ex_data(ssl, 0));
    const TavelTKError error = errorOf(X509_STORE_CTX_get_error(store));
    if (!self.m_isChainChecked && error != TavelTKError::certificateWrongHost)
        return 1; // the host has switched off everything but the name
    try {
        self.judge(store);
    } catch (...) {
        self.m_verdict = {Attempt::failed, 0, {}, error};
    }
    return 0;
}

int TlsChannel::onCertificateRequest(SSL*, void* self) {
    static_cast<TlsChannel*>(self)->m_isAsked = true;
    return 1;
}

void TlsChannel::judge(X509_STORE_CTX* store) {
    const int code = X509_STORE_CTX_get_error(store);
    std::string cause = X509_verify_cert_error_string(code);
    if (const X509* const certificate = X509_STORE_CTX_get_current_cert(store))
        cause.append("; certificate of '")
            .append(nameOf(X509_get_subject_name(certificate)))
            .append("' by '")
            .append(nameOf(X509_get_issuer_name(certificate)))
            .append("'");
    if (errorOf(code) == TavelTKError::certificateWrongHost)
        cause.append(", not of '").append(printable(m_host)).append("'");
    m_verdict = {Attempt::failed, 0, std::move(cause), errorOf(code)};
}

Attempt TlsChannel::failure(int code) {
    m_isOver = true;
    if (m_verdict.state == Attempt::failed) {
        ERR_clear_error();
        return m_verdict;
    }
    const unsigned long queued = ERR_peek_error();
    const int reason = ERR_GET_REASON(queued);
    if (m_last.state == Attempt::failed && queued == 0)
        return m_last; // the socket's own failure
    if (m_last.state == Attempt::closed && (code == SSL_ERROR_SYSCALL || queued == 0)) {
        ERR_clear_error();
        return {Attempt::closed, 0, "the peer closed it without ending the TLS session", {}};
    }
    const bool isRefused =
        isAboutCertificate(reason) || (m_isAsked && reason == SSL_R_SSLV3_ALERT_HANDSHAKE_FAILURE);
    if (reason == SSL_R_WRONG_VERSION_NUMBER && !SSL_is_init_finished(m_ssl.get()))
        return {Attempt::failed, 0,
                takeTlsWords() + ": the peer does not speak TLS; is its port one for http?",
                TavelTKError::tlsFailed};
    if (!isRefused)
        return {Attempt::failed, 0, takeTlsWords(), TavelTKError::tlsFailed};
    const bool isGiven = SSL_get_certificate(m_ssl.get()) != nullptr;
    return {Attempt::failed, 0, takeTlsWords() + (isGiven ? "" : "; none was given (tls-certificate-file)"),
            TavelTKError::clientCertificateRefused};
}

Attempt TlsChannel::attempt(int result, std::size_t count) {
    if (result == 1)
        return {Attempt::moved, count, {}, {}};
    switch (const int code = SSL_get_error(m_ssl.get(), result)) {
    case SSL_ERROR_WANT_READ: return {Attempt::wantsInput, 0, {}, {}};
    case SSL_ERROR_WANT_WRITE: return {Attempt::wantsRoom, 0, {}, {}};
    case SSL_ERROR_ZERO_RETURN: return {Attempt::closed, 0, {}, {}};
    default: return failure(code);
    }
}

Attempt TlsChannel::handshake() {
    ERR_clear_error();
    return attempt(SSL_connect(m_ssl.get()), 0);
}

Attempt TlsChannel::send(std::string_view bytes) {
    ERR_clear_error();
    std::size_t count = 0;
    const int result = SSL_write_ex(m_ssl.get(), bytes.data(), bytes.size(), &count);
    return attempt(result, count);
}

Attempt TlsChannel::receive(char* buffer, std::size_t size) {
    ERR_clear_error();
    std::size_t count = 0;
    const int result = SSL_read_ex(m_ssl.get(), buffer, size, &count);
    return attempt(result, count);
}

bool TlsChannel::hasPending() const {
    return SSL_has_pending(m_ssl.get()) == 1;
}

bool TlsChannel::isSilent() {
    // A peer may send what belongs to TLS alone, such as tickets for later sessions: that is no reply.
    if (!hasPending() && m_socket->isSilent())
        return true;
    ERR_clear_error();
    char byte = 0;
    std::size_t count = 0;
    const int result = SSL_peek_ex(m_ssl.get(), &byte, 1, &count);
    return attempt(result, count).state == Attempt::wantsInput;
}

} // namespace mrl::detail
