#pragma once

#include "HBLCore/MRLExport.h"

#include <string>

/// Sends what is an envelope already, for those who have no typed message. The settings of no session have a
/// part in it: nothing is recorded, played back or sent again. Thread-safe.
class MRL_EXPORT MRLSendSoap {
public:
    MRLSendSoap() = delete;

    static const char* const SESSION_CONFIG_DOC;
    /// Seconds for the whole exchange.
    static constexpr int TIME_LIMIT = 1000;

    /// Carries one request and its reply.
    /// @param soapAction handed on as it is.
    /// @param responseMessage receives the reply's envelope, also when it is a fault.
    /// @param attachment receives the reply's first attachment; stays as it is when there is none.
    /// @throws MRLSOAPFaultException for a reply that holds "<SOAP-ENV:Fault>". A fault under another prefix
    ///         is a text like any. TavelTKException for a failure of the transport; HBLAssertError for a null
    ///         request; HBLUnknownError for what is no throwable of the toolkit.
    static void send(const char* url, const char* requestMessage, const char* soapAction,
                     std::string& responseMessage, std::string& attachment);
};
