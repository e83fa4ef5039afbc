#pragma once

#include "http/ServerSettings.h"
#include "soap/RequestProcessor.h"

#include <Poco/Net/HTTPServer.h>
#include <Poco/ThreadPool.h>

#include <atomic>
#include <string>

namespace mrl::bus {

/// The bus on its socket: listens from construction to `stop`.
class BusServer {
public:
    /// @throws Poco::Exception when the address cannot be had; std::runtime_error says which.
    BusServer(RequestProcessor& processor, const ServerSettings& settings);
    ~BusServer();

    /// Where it listens, as "http://127.0.0.1:9300/".
    const std::string& url() const { return m_url; }

    /// Takes no more requests, lets those at work finish for a moment, and ends. May be called again.
    void stop();

private:
    const ServerSettings m_settings;
    std::atomic<int> m_busy{0}; // requests being answered
    Poco::ThreadPool m_threads;
    Poco::Net::HTTPServer m_server;
    std::string m_url;
};

} // namespace mrl::bus
