#pragma once

#include "TavelTK/TavelTK.h"
#include "TavelTK/detail/Endpoint.h"
#include "TavelTK/detail/SessionOptions.h"
#include "TavelTK/detail/Wire.h"

#include <mutex>

namespace mrl::detail {

/// The factory of sessions over HTTP.
class HttpTavelTK : public TavelTK {
public:
    explicit HttpTavelTK(const Surroundings& surroundings)
        : m_surroundings(surroundings) {}

    void setProperty(const std::string& name, int value) override;
    void setProperty(const std::string& name, const std::string& value) override;
    TavelTKSession* getSession(char* url, char* sessionConfig, int timeLimit) override;
    TavelTKSession* getSession(HBLIDOM_Element& endpoint, char* sessionConfig, int timeLimit) override;
    TavelTKSession* getSession(const char* host, int port, const char* path, char* sessionConfig,
                               int timeLimit) override;
    using TavelTK::getServerSocket;
    TavelTKServerSocket* getServerSocket(int port, char* config) override;
    TavelTKServerSession* getServerSession(TavelTKSocket* socket) override;
    TavelTKSocket* getSocket() override;

private:
    TavelTKSession* newSession(Endpoint endpoint, const char* sessionConfig, int timeLimit) const;

    const Surroundings m_surroundings;
    mutable std::mutex m_mutex;
    SessionOptions m_options;
};

} // namespace mrl::detail
