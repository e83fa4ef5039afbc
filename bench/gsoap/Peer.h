#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace mrl::bench {

/// gSOAP as a rival: it reads a reply into objects of its own, honouring xsi:type, and writes them again.
class GsoapPeer {
public:
    GsoapPeer();
    ~GsoapPeer();
    GsoapPeer(const GsoapPeer&) = delete;
    GsoapPeer& operator=(const GsoapPeer&) = delete;

    /// Reads with a context of its own, gives everything back, and tells how many objects there were; -1 when
    /// it could not be read.
    static int readAll(std::string_view document);

    /// Reads, and keeps the objects for write().
    int read(std::string_view document);

    /// Writes the kept objects: values in place, indented.
    void write(std::string& out);

private:
    struct Context;
    std::unique_ptr<Context> m_context;
};

} // namespace mrl::bench
