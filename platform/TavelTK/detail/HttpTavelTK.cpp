#include "TavelTK/detail/HttpTavelTK.h"

#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/HttpSession.h"

namespace mrl::detail {

namespace {

[[noreturn]] void refuse(std::string_view cause) {
    fail(TavelTKError::unsupported, TavelTKPhase::prepare, {}, cause);
}

} // namespace

void HttpTavelTK::setProperty(const std::string& name, int value) {
    const std::lock_guard lock(m_mutex);
    hblRethrowing("TavelTK::setProperty", [&] { m_options.set(name, value); });
}

void HttpTavelTK::setProperty(const std::string& name, const std::string& value) {
    const std::lock_guard lock(m_mutex);
    hblRethrowing("TavelTK::setProperty", [&] { m_options.set(name, value); });
}

TavelTKSession* HttpTavelTK::newSession(Endpoint endpoint, const char* sessionConfig, int timeLimit) const {
    const std::lock_guard lock(m_mutex);
    return hblNew<HttpSession>(HBL_HERE, std::move(endpoint), sessionConfig, timeLimit, m_options,
                               m_surroundings);
}

TavelTKSession* HttpTavelTK::getSession(char* url, char* sessionConfig, int timeLimit) {
    return hblRethrowing("TavelTK::getSession",
                         [&] { return newSession(Endpoint::parse(url), sessionConfig, timeLimit); });
}

TavelTKSession* HttpTavelTK::getSession(const char* host, int port, const char* path, char* sessionConfig,
                                        int timeLimit) {
    return hblRethrowing("TavelTK::getSession", [&] {
        return newSession(Endpoint::of(host, port, path), sessionConfig, timeLimit);
    });
}

TavelTKSession* HttpTavelTK::getSession(HBLIDOM_Element&, char*, int) {
    refuse("getSession() with an element is not offered; give a URL");
}

TavelTKServerSocket* HttpTavelTK::getServerSocket(int, char*) {
    refuse("getServerSocket() is not offered; this toolkit has no server side");
}

TavelTKServerSession* HttpTavelTK::getServerSession(TavelTKSocket*) {
    refuse("getServerSession() is not offered; this toolkit has no server side");
}

TavelTKSocket* HttpTavelTK::getSocket() {
    refuse("getSocket() is not offered; this toolkit has no server side");
}

} // namespace mrl::detail
