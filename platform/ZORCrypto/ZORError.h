#pragma once

#include "HBLCore/HBLError.h"
#include "HBLCore/HBLFailure.h"

#include <string>

/// Why the crypto library refuses, as functions return it.
enum ZORStatus : int {
    eZORSuccess = 0,
    eZORBadArgument = -1,    ///< a null pointer, an empty text, a handle without a purpose
    eZORBadDocument = -2,    ///< a control document that is not as it should be
    eZORKeyStore = -3,       ///< the key store cannot be made, read or trusted
    eZORUnknownKey = -4,     ///< protected with a key that the store does not hold
    eZORRefused = -5,        ///< changed, forged, or made for another purpose, service or passport
    eZORExpired = -6,        ///< genuine, and too old or seen before
    eZORUnknownVersion = -7, ///< a form that this version does not know
    eZORSystem = -8,         ///< no randomness, or a failure of OpenSSL or of the configuration
    eZOROutOfMemory = -9,    ///< no memory; may come without a text, and nothing else has changed
};

/// A refusal of the crypto library. The text names what was refused and where, and no secret.
class MRL_EXPORT ZORError : public HBLErrorOf<ZORError> {
public:
    static constexpr const char* s_name = "ZORError";
    ZORError(ZORStatus status, const std::string& text)
        : HBLErrorOf(-status, text.c_str(), "the crypto library refused")
        , m_status(status) {}

    ZORStatus getStatus() const noexcept { return m_status; }

protected:
    const char* getErrorCodePrefix() const override { return "HBL-ZOR"; }

private:
    ZORStatus m_status;
};
