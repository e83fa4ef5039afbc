#include "TavelTK/detail/RequestHead.h"

#include "HBLCore/HBLBase64.h"

namespace mrl::detail {

namespace {

/// What stands in the document's <serviceID>, in a form that any header can carry.
std::string serviceIdOf(std::string_view config) {
    static constexpr std::string_view s_open = "<serviceID>";
    const std::size_t begin = config.find(s_open);
    const std::size_t end = config.find("</serviceID>", begin);
    if (begin == std::string_view::npos || end == std::string_view::npos)
        return {};
    static constexpr std::string_view s_digits = "0123456789ABCDEF";
    std::string id;
    for (const char c : config.substr(begin + s_open.size(), end - begin - s_open.size())) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte > ' ' && byte < 0x7f && c != '%')
            id += c;
        else
            (id += '%').append({s_digits[byte >> 4], s_digits[byte & 15]});
    }
    return id;
}

void addLine(std::string& lines, std::string_view name, std::string_view value) {
    if (!value.empty())
        lines.append(name).append(": ").append(value).append("\r\n");
}

} // namespace

std::string requestHead(Wire& wire, std::string_view soapAction, std::string_view contentType,
                        std::string_view sessionConfig, std::string_view requestId) {
    const SessionOptions& options = wire.options();
    const bool isForwarded = wire.route().isForwarded();
    std::string lines = "POST " + (isForwarded ? "http://" + wire.peer() : "") + wire.endpoint().path +
                        " HTTP/1.1\r\nHost: " + wire.peer() + "\r\n";
    if (!options.user.empty())
        lines += wire.credentials("Authorization", options.user, options.password);
    if (isForwarded && !options.proxyUser.empty())
        lines += wire.credentials("Proxy-Authorization", options.proxyUser, options.proxyPassword);
    lines.append("User-Agent: mrl\r\nAccept: text/xml, multipart/related\r\nSOAPAction: \"");
    lines.append(soapAction).append("\"\r\n");
    addLine(lines, "Content-Type", contentType);
    addLine(lines, "X-MRL-Session-Config", HBLBase64Encoded(sessionConfig));
    addLine(lines, "X-MRL-Service-Id", serviceIdOf(sessionConfig));
    addLine(lines, "X-MRL-Request-Id", requestId);
    addLine(lines, "X-MRL-Trace-Id", options.traceId);
    return lines;
}

} // namespace mrl::detail
