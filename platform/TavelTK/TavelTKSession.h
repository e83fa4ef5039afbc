#pragma once

#include "HBLCore/MRLExport.h"

#include <string>

class HBLIDOM_Element;
class HBLIDOM_Node;
class TavelTKMessageReader;
class TavelTKMessageWriter;

/// One request and one reply. Driven by one thread at a time, in this order: properties and echo,
/// openRequest, closeRequest, openResponse, closeResponse, release. It may end early: closeRequest takes a
/// writer whose envelope was not finished (the request is then abandoned, its connection closed),
/// closeResponse a reader that is not at its end, and release is allowed at any time.
class MRL_EXPORT TavelTKSession {
public:
    TavelTKSession() = default;
    /// Users give a session back with release().
    virtual ~TavelTKSession();
    TavelTKSession(const TavelTKSession&) = delete;
    TavelTKSession& operator=(const TavelTKSession&) = delete;

    /// Sets how this exchange is carried; before openRequest. Numbers may be given as text too, which
    /// reaches beyond the range of an int.
    ///
    /// | name | value | default |
    /// |---|---|---|
    /// | "send-content-length" | 1: gather the request and send its length; 0: send it in chunks | 1 |
    /// | "chunk-size" | bytes of one chunk, 1 to 16777216 | 131072 |
    /// | "expect-continue" | milliseconds to await consent to the body, 0: not asked for | 0 |
    /// | "connect-time-limit" | milliseconds for a connection to come up, proxy and TLS included | 30000 |
    /// | "send-time-limit" | milliseconds without progress while sending, 0: the time limit alone | 0 |
    /// | "receive-time-limit" | milliseconds without a byte while receiving, 0: the time limit alone | 0 |
    /// | "max-header-bytes" | reply header, and headers of one part, 256 to 1048576 | 65536 |
    /// | "max-envelope-bytes" | the reply's envelope, 0: no limit | 134217728 |
    /// | "max-reply-bytes" | the reply's whole body with attachments, 0: no limit | 0 |
    /// | "max-parts" | attachments in one reply, 0: no limit | 10000 |
    /// | "max-early-bytes" | attachments before the envelope, held in memory; to 1073741824 | 4194304 |
    /// | "inflate-attachments" | 1: gzip attachments come unpacked, and isGzipped says no | 0 |
    /// | "max-inflated-bytes" | what one attachment may unpack to, 0: no limit | 0 |
    /// | "max-inflate-ratio" | unpacked to packed bytes beyond the first MiB, 0: no limit; to 2000 | 200 |
    /// | "user", "password" | text: basic authentication, sent with the request | none |
    /// | "trace-id" | text: travels as X-MRL-Trace-Id | none |
    /// | "proxy" | text: host:port or http://host:port | none |
    /// | "proxy-user", "proxy-password" | text: basic authentication with the proxy | none |
    /// | "no-proxy" | text: hosts and domains reached straight, between commas; "*": all | none |
    /// | "tls-verify-certificate" | 1: a trusted authority must vouch for the peer | 1 |
    /// | "tls-verify-host" | 1: the peer's certificate must be made out to the URL's host | 1 |
    /// | "tls-ca-file", "tls-ca-directory" | text: trusted authorities, PEM; neither: the system's | none |
    /// | "tls-certificate-file" | text: this side's certificate with its chain, PEM | none |
    /// | "tls-key-file", "tls-key-password" | text: its key; without a file it stands with it | none |
    /// | "tls-min-version" | text: 1.2 or 1.3 | 1.2 |
    ///
    /// @throws TavelTKException when no such property exists or the value is out of its range.
    virtual void setProperty(const std::string& name, int value) = 0;
    virtual void setProperty(const std::string& name, const std::string& value) = 0;

    /// echo(fileName, "wb", 1).
    virtual void echo(const char* fileName);

    /// Asks for a copy of this session's traffic, as it passes the wire, in a file that only its owner can
    /// read. A session without a wire of its own has no traffic, so the base implementation does nothing.
    /// @param mode "wb" replaces the file, "ab" appends to it.
    /// @param flag not 0: the file is flushed after each piece.
    /// @throws TavelTKException when the file cannot be opened.
    virtual void echo(const char* fileName, const char* mode, int flag);

    virtual void doRequest(HBLIDOM_Element& request, HBLIDOM_Node& response) = 0;
    virtual void sendRequest(HBLIDOM_Element& request) = 0;
    virtual void getResponse(HBLIDOM_Node& response) = 0;

    /// Starts the request, once a session. The writer belongs to the session.
    /// @param hasAttachments 1 if the request will carry attachments: the envelope then goes out while it
    ///        is being written. With 0 it is held until it is known that none follow.
    virtual TavelTKMessageWriter& openRequest(int hasAttachments) = 0;
    /// Ends the request: when it returns, the last byte has been handed to the network.
    virtual void closeRequest(TavelTKMessageWriter& writer) = 0;
    /// Opens the reply, once a session. The reader belongs to the session; it waits for the reply when its
    /// envelope is opened.
    virtual TavelTKMessageReader& openResponse() = 0;
    /// Ends the reply, read to its end or not. Throws nothing for what is left unread.
    virtual void closeResponse(TavelTKMessageReader& reader) = 0;

    /// Gives the session back, together with its writer and reader; nothing of it is touched afterwards.
    virtual void release() = 0;
};
