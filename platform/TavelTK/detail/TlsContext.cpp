#include "TavelTK/detail/TlsContext.h"

#include "TavelTK/detail/Failure.h"

#include <openssl/err.h>
#include <openssl/ssl.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstring>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace mrl::detail {

namespace {

/// What tells a file from a later one of the same name.
std::string stampOf(const std::string& path) {
    struct stat info {};
    if (path.empty() || ::stat(path.c_str(), &info) != 0)
        return "-";
    return std::to_string(info.st_ino) + "." + std::to_string(info.st_size) + "." +
           std::to_string(info.st_mtim.tv_sec) + "." + std::to_string(info.st_mtim.tv_nsec);
}

std::string stampOf(const TlsSettings& settings) {
    std::string stamp;
    for (const std::string* const path :
         {&settings.caFile, &settings.caDirectory, &settings.certificateFile, &settings.keyFile})
        stamp.append(stampOf(*path)).append(" ");
    return stamp;
}

[[noreturn]] void refuse(const std::string& what, const std::string& path) {
    std::string reason = takeTlsWords();
    if (!path.empty() && ::access(path.c_str(), R_OK) != 0)
        reason = std::generic_category().message(errno);
    fail(TavelTKError::tlsSetupFailed, TavelTKPhase::prepare, {},
         what + (path.empty() ? "" : " '" + printable(path) + "'") + " cannot be used (" + reason + ")");
}

/// Always set, since without it the library asks at the terminal.
int givePassword(char* buffer, int size, int, void* settings) {
    const std::string& password = static_cast<const TlsSettings*>(settings)->keyPassword;
    if (password.size() > static_cast<std::size_t>(size))
        return -1;
    std::memcpy(buffer, password.data(), password.size());
    return static_cast<int>(password.size());
}

void loadTrust(SSL_CTX* context, const TlsSettings& settings) {
    if (!settings.caFile.empty() && SSL_CTX_load_verify_file(context, settings.caFile.c_str()) != 1)
        refuse("the file of authorities (tls-ca-file)", settings.caFile);
    if (!settings.caDirectory.empty()) {
        struct stat info {};
        errno = 0;
        if (::stat(settings.caDirectory.c_str(), &info) == 0 && !S_ISDIR(info.st_mode))
            errno = ENOTDIR;
        if (errno != 0 || SSL_CTX_load_verify_dir(context, settings.caDirectory.c_str()) != 1) {
            const std::string reason = errno != 0 ? std::generic_category().message(errno) : takeTlsWords();
            fail(TavelTKError::tlsSetupFailed, TavelTKPhase::prepare, {},
                 "the directory of authorities (tls-ca-directory) '" + printable(settings.caDirectory) +
                     "' cannot be used (" + reason + ")");
        }
    }
    if (settings.caFile.empty() && settings.caDirectory.empty() &&
        SSL_CTX_set_default_verify_paths(context) != 1)
        refuse("the system's store of authorities", {});
}

void loadIdentity(SSL_CTX* context, TlsSettings& settings) {
    if (settings.certificateFile.empty()) {
        if (!settings.keyFile.empty())
            fail(TavelTKError::tlsSetupFailed, TavelTKPhase::prepare, {},
                 "a key (tls-key-file) is given without its certificate (tls-certificate-file)");
        return;
    }
    const std::string& key = settings.keyFile.empty() ? settings.certificateFile : settings.keyFile;
    SSL_CTX_set_default_passwd_cb(context, &givePassword);
    SSL_CTX_set_default_passwd_cb_userdata(context, &settings);
    if (SSL_CTX_use_certificate_chain_file(context, settings.certificateFile.c_str()) != 1)
        refuse("the client certificate (tls-certificate-file)", settings.certificateFile);
    if (SSL_CTX_use_PrivateKey_file(context, key.c_str(), SSL_FILETYPE_PEM) != 1)
        refuse("the key of the client certificate (tls-key-file, tls-key-password)", key);
    if (SSL_CTX_check_private_key(context) != 1)
        refuse("the key does not belong to the client certificate; it", key);
    SSL_CTX_set_default_passwd_cb_userdata(context, nullptr);
}

TlsContext load(TlsSettings settings) {
    ERR_clear_error();
    TlsContext context(SSL_CTX_new(TLS_client_method()), &SSL_CTX_free);
    if (!context)
        refuse("TLS", {});
    if (SSL_CTX_set_min_proto_version(context.get(),
                                      settings.minVersion == "1.3" ? TLS1_3_VERSION : TLS1_2_VERSION) != 1)
        refuse("TLS " + settings.minVersion, {});
    SSL_CTX_set_options(context.get(), SSL_OP_NO_RENEGOTIATION | SSL_OP_NO_COMPRESSION);
    SSL_CTX_set_mode(context.get(), SSL_MODE_ENABLE_PARTIAL_WRITE | SSL_MODE_ACCEPT_MOVING_WRITE_BUFFER |
                                        SSL_MODE_RELEASE_BUFFERS);
    loadTrust(context.get(), settings);
    loadIdentity(context.get(), settings);
    return context;
}

} // namespace

std::string takeTlsWords() {
    const unsigned long code = ERR_peek_error();
    const char* const reason = code != 0 ? ERR_reason_error_string(code) : nullptr;
    std::string words = reason ? reason : "no reason is given";
    ERR_clear_error();
    return words;
}

TlsContexts& TlsContexts::shared() {
    static auto* const s_contexts = new TlsContexts;
    return *s_contexts;
}

TlsContext TlsContexts::get(const TlsSettings& settings) {
    const std::string stamp = stampOf(settings);
    const auto isSame = [&](const Kept& kept) { return kept.settings == settings; };
    {
        const std::lock_guard lock(m_mutex);
        const auto found = std::ranges::find_if(m_kept, isSame);
        if (found != m_kept.end() && found->stamp == stamp) {
            m_kept.splice(m_kept.begin(), m_kept, found);
            return found->context;
        }
    }
    std::list<Kept> read; // outside the lock: files may be slow
    read.push_back({settings, stamp, load(settings)});
    TlsContext context = read.front().context;
    const std::lock_guard lock(m_mutex);
    std::erase_if(m_kept, isSame);
    m_kept.splice(m_kept.begin(), read);
    if (m_kept.size() > maxKept)
        m_kept.pop_back();
    return context;
}

} // namespace mrl::detail
