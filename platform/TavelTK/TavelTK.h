#pragma once

#include "HBLCore/MRLExport.h"

#include <string>

class HBLIDOM_Element;
class TavelTKServerSession;
class TavelTKServerSocket;
class TavelTKSession;
class TavelTKSocket;

/// The bus toolkit's front door: a factory of sessions, each of which carries one request and its reply.
///
/// The toolkit's own factory speaks SOAP over HTTP/1.1; recording and playback factories derive from this
/// class and stand in its place. `char*` arguments are never written to.
class MRL_EXPORT TavelTK {
public:
    TavelTK() = default;
    virtual ~TavelTK();
    TavelTK(const TavelTK&) = delete;
    TavelTK& operator=(const TavelTK&) = delete;

    /// Sets a default for the sessions that this factory hands out from now on. The names are those of
    /// TavelTKSession::setProperty.
    /// @throws TavelTKException when no such property exists or the value is out of its range.
    virtual void setProperty(const std::string& name, int value) = 0;
    virtual void setProperty(const std::string& name, const std::string& value) = 0;

    /// A session for one exchange with the endpoint `url`. Nothing is connected yet.
    /// @param sessionConfig the session configuration document, which travels with the request; may be null.
    /// @param timeLimit seconds for the whole exchange, from openRequest to the last byte of the reply.
    /// @return owned by the toolkit: give it back with TavelTKSession::release. Never null. It does not
    ///         need this factory after the call.
    /// @throws TavelTKException when the endpoint cannot be used or the limit is not positive.
    virtual TavelTKSession* getSession(char* url, char* sessionConfig, int timeLimit) = 0;
    virtual TavelTKSession* getSession(HBLIDOM_Element& endpoint, char* sessionConfig, int timeLimit) = 0;
    virtual TavelTKSession* getSession(const char* host, int port, const char* path, char* sessionConfig,
                                       int timeLimit) = 0;

    /// This toolkit has no server side.
    /// @throws TavelTKException always, with TavelTKError::unsupported.
    virtual TavelTKServerSocket* getServerSocket(char* host, int port, char* config);
    virtual TavelTKServerSocket* getServerSocket(int port, char* config) = 0;
    virtual TavelTKServerSession* getServerSession(TavelTKSocket* socket) = 0;
    virtual TavelTKSocket* getSocket() = 0;

    /// A new factory over HTTP, owned by the caller. Safe from any thread, as the factory itself is; all
    /// factories of the process share one bounded pool of kept-alive connections.
    static TavelTK* getSessionFactory();
};
