#include "http/BusServer.h"

#include "http/RequestHandler.h"

#include <Poco/Exception.h>
#include <Poco/Net/HTTPRequestHandlerFactory.h>
#include <Poco/Net/HTTPServerParams.h>
#include <Poco/Net/NetException.h>
#include <Poco/Net/ServerSocket.h>

#include <chrono>
#include <stdexcept>
#include <thread>

namespace mrl::bus {

namespace {

constexpr std::chrono::milliseconds graceTime{3000};

class HandlerFactory : public Poco::Net::HTTPRequestHandlerFactory {
public:
    HandlerFactory(RequestProcessor& processor, const ServerSettings& settings, std::atomic<int>& busy)
        : m_processor(processor)
        , m_settings(settings)
        , m_busy(busy) {}

    Poco::Net::HTTPRequestHandler* createRequestHandler(const Poco::Net::HTTPServerRequest&) override {
        return new RequestHandler(m_processor, m_settings, m_busy);
    }

private:
    RequestProcessor& m_processor;
    const ServerSettings& m_settings;
    std::atomic<int>& m_busy;
};

Poco::Net::HTTPServerParams::Ptr toParams(const ServerSettings& settings) {
    const Poco::Timespan idle(settings.idleTimeout.count(), 0);
    Poco::Net::HTTPServerParams::Ptr params(new Poco::Net::HTTPServerParams);
    params->setMaxThreads(settings.threads);
    params->setMaxQueued(settings.queue);
    params->setTimeout(idle);
    params->setKeepAliveTimeout(Poco::Timespan(settings.keepAliveTimeout.count(), 0));
    params->setSoftwareVersion("mrl-bus");
    return params;
}

Poco::Net::ServerSocket listen(const ServerSettings& settings) {
    try {
        Poco::Net::ServerSocket socket;
        const bool sharePort = false; // or a second bus would take every other request of the first
        socket.bind(Poco::Net::SocketAddress(settings.host, settings.port), true, sharePort);
        socket.listen();
        return socket;
    } catch (const Poco::Exception& e) {
        throw std::runtime_error("cannot listen on " + settings.host + ":" + std::to_string(settings.port) +
                                 ": " + e.displayText() +
                                 "; choose another --port (0 for any free one) or --host");
    }
}

} // namespace

BusServer::BusServer(RequestProcessor& processor, const ServerSettings& settings)
    : m_settings(settings)
    , m_threads("mrl-bus", 1, settings.threads)
    , m_server(new HandlerFactory(processor, m_settings, m_busy), m_threads, listen(m_settings),
               toParams(m_settings))
    , m_url("http://" + m_server.socket().address().toString() + "/") {
    m_server.start();
}

BusServer::~BusServer() {
    stop();
}

void BusServer::stop() {
    m_server.stop();
    Poco::Net::ServerSocket(m_server.socket()).close(); // or callers would still get into its queue
    const auto end = std::chrono::steady_clock::now() + graceTime;
    while (m_busy.load() > 0 && std::chrono::steady_clock::now() < end)
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    m_server.stopAll(true);
    m_threads.joinAll();
}

} // namespace mrl::bus
