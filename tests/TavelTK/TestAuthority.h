#pragma once

#include <openssl/evp.h>
#include <openssl/pem.h>
#include <openssl/x509v3.h>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

/// An authority made for one test, and what it signs: PEM files in a directory that goes with it.
class TestAuthority {
public:
    struct Request {
        std::string names = "DNS:localhost,IP:127.0.0.1"; ///< whom the certificate is made out to
        long fromDay = -1;                                ///< counted from now
        long toDay = 1;
        std::string use = "serverAuth,clientAuth";
    };

    TestAuthority()
        : m_directory((std::filesystem::temp_directory_path() / "mrl_ca_XXXXXX").string()) {
        if (!::mkdtemp(m_directory.data()))
            std::abort();
        m_certificate = sign("Test authority", {"", -1, 1, ""}, m_key);
        write(file(), nullptr, m_certificate.get());
    }
    ~TestAuthority() { std::filesystem::remove_all(m_directory); }

    /// The authority's own certificate.
    std::string file() const { return m_directory + "/ca.pem"; }

    /// A new certificate with its key behind it, in one file.
    std::string issue(const Request& request) const {
        const std::string path = m_directory + "/" + std::to_string(++m_issued) + ".pem";
        const Key key = newKey();
        write(path, key.get(), sign("Test peer", request, key).get());
        return path;
    }

private:
    using Key = std::shared_ptr<EVP_PKEY>;

    static Key newKey() { return {EVP_PKEY_Q_keygen(nullptr, nullptr, "EC", "P-256"), &EVP_PKEY_free}; }

    static void write(const std::string& path, EVP_PKEY* key, X509* certificate) {
        const std::unique_ptr<BIO, decltype(&BIO_free)> file(BIO_new_file(path.c_str(), "w"), &BIO_free);
        PEM_write_bio_X509(file.get(), certificate);
        if (key)
            PEM_write_bio_PrivateKey(file.get(), key, nullptr, nullptr, 0, nullptr, nullptr);
    }

    static void extend(X509* certificate, int kind, const std::string& value) {
        if (value.empty())
            return;
        X509_EXTENSION* const extension = X509V3_EXT_conf_nid(nullptr, nullptr, kind, value.c_str());
        X509_add_ext(certificate, extension, -1);
        X509_EXTENSION_free(extension);
    }

    std::shared_ptr<X509> sign(const std::string& subject, const Request& request, const Key& key) const {
        const std::shared_ptr<X509> made(X509_new(), &X509_free);
        X509_set_version(made.get(), X509_VERSION_3);
        ASN1_INTEGER_set(X509_get_serialNumber(made.get()), m_issued + 1);
        X509_gmtime_adj(X509_getm_notBefore(made.get()), request.fromDay * 86400);
        X509_gmtime_adj(X509_getm_notAfter(made.get()), request.toDay * 86400);
        X509_NAME_add_entry_by_txt(X509_get_subject_name(made.get()), "CN", MBSTRING_UTF8,
                                   reinterpret_cast<const unsigned char*>(subject.c_str()), -1, -1, 0);
        const X509* const issuer = m_certificate ? m_certificate.get() : made.get();
        X509_set_issuer_name(made.get(), X509_get_subject_name(issuer));
        X509_set_pubkey(made.get(), key.get());
        extend(made.get(), NID_basic_constraints, m_certificate ? "CA:FALSE" : "critical,CA:TRUE");
        extend(made.get(), NID_subject_alt_name, request.names);
        extend(made.get(), NID_ext_key_usage, request.use);
        X509_sign(made.get(), m_key.get(), EVP_sha256());
        return made;
    }

    std::string m_directory;
    const Key m_key = newKey();
    std::shared_ptr<X509> m_certificate;
    mutable long m_issued = 0;
};
