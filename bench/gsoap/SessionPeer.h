#pragma once

#include <memory>
#include <string>

namespace mrl::bench {

/// gSOAP's client as a rival: typed calls on one kept-alive connection.
class GsoapClient {
public:
    explicit GsoapClient(std::string url);
    ~GsoapClient();
    GsoapClient(const GsoapClient&) = delete;
    GsoapClient& operator=(const GsoapClient&) = delete;

    /// Asks for the reports below `searchPath`, and gives the objects back.
    /// @return the first one's name; empty when the call failed.
    std::string query(const char* searchPath);

private:
    struct Context;
    std::unique_ptr<Context> m_context;
};

} // namespace mrl::bench
