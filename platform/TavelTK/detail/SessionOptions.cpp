#include "TavelTK/detail/SessionOptions.h"

#include "TavelTK/detail/Failure.h"
#include "TavelTK/detail/Route.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string_view>

namespace mrl::detail {

namespace {

using Options = SessionOptions;

struct Number {
    std::string_view name;
    std::int64_t& (*member)(Options&);
    std::int64_t least;
    std::int64_t most;
};

struct Text {
    std::string_view name;
    std::string& (*member)(Options&);
    const char* (*fault)(std::string_view value); ///< what must be given instead; null for a good value
    bool isSecret = false;
};

constexpr std::int64_t s_anyTime = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t s_anySize = std::numeric_limits<std::int64_t>::max();

template <std::int64_t Options::*member>
std::int64_t& number(Options& options) {
    return options.*member;
}

template <std::string Options::*member>
std::string& text(Options& options) {
    return options.*member;
}

template <std::string TlsSettings::*member>
std::string& tlsText(Options& options) {
    return options.tls.*member;
}

template <std::int64_t TlsSettings::*member>
std::int64_t& tlsNumber(Options& options) {
    return options.tls.*member;
}

bool hasControl(std::string_view value) {
    return std::ranges::any_of(value, [](unsigned char c) { return c < ' ' || c == 0x7f; });
}

const char* anyLine(std::string_view value) {
    return hasControl(value) ? "give a text without control characters" : nullptr;
}

const char* userName(std::string_view value) {
    const bool isGood = !hasControl(value) && value.find(':') == std::string_view::npos;
    return isGood ? nullptr : "give a name without colons and control characters";
}

const char* identifier(std::string_view value) {
    const bool isGood = value.size() <= 128 && std::ranges::all_of(value, [](unsigned char c) {
                            return c > ' ' && c < 0x7f && c != '"' && c != ',';
                        });
    return isGood ? nullptr : "give at most 128 printable ASCII characters without blanks, quotes and commas";
}

const char* proxyAddress(std::string_view value) {
    return value.empty() || Route::parseProxy(value) ? nullptr : "give host:port or http://host:port";
}

const char* tlsVersion(std::string_view value) {
    return value == "1.2" || value == "1.3" ? nullptr : "give 1.2 or 1.3";
}

constexpr std::array s_numbers{
    Number{"send-content-length", number<&Options::sendContentLength>, 0, 1},
    Number{"chunk-size", number<&Options::chunkSize>, 1, 16777216},
    Number{"expect-continue", number<&Options::expectContinue>, 0, s_anyTime},
    Number{"connect-time-limit", number<&Options::connectTimeLimit>, 1, s_anyTime},
    Number{"send-time-limit", number<&Options::sendTimeLimit>, 0, s_anyTime},
    Number{"receive-time-limit", number<&Options::receiveTimeLimit>, 0, s_anyTime},
    Number{"max-header-bytes", number<&Options::maxHeaderBytes>, 256, 1048576},
    Number{"max-envelope-bytes", number<&Options::maxEnvelopeBytes>, 0, s_anySize},
    Number{"max-reply-bytes", number<&Options::maxReplyBytes>, 0, s_anySize},
    Number{"max-parts", number<&Options::maxParts>, 0, s_anySize},
    Number{"max-early-bytes", number<&Options::maxEarlyBytes>, 0, 1073741824},
    Number{"inflate-attachments", number<&Options::inflateAttachments>, 0, 1},
    Number{"max-inflated-bytes", number<&Options::maxInflatedBytes>, 0, s_anySize},
    Number{"max-inflate-ratio", number<&Options::maxInflateRatio>, 0, 2000},
    Number{"tls-verify-certificate", tlsNumber<&TlsSettings::verifyCertificate>, 0, 1},
    Number{"tls-verify-host", tlsNumber<&TlsSettings::verifyHost>, 0, 1}};

constexpr std::array s_texts{Text{"user", text<&Options::user>, userName},
                             Text{"password", text<&Options::password>, anyLine, true},
                             Text{"trace-id", text<&Options::traceId>, identifier},
                             Text{"proxy", text<&Options::proxy>, proxyAddress},
                             Text{"proxy-user", text<&Options::proxyUser>, userName},
                             Text{"proxy-password", text<&Options::proxyPassword>, anyLine, true},
                             Text{"no-proxy", text<&Options::noProxy>, anyLine},
                             Text{"tls-ca-file", tlsText<&TlsSettings::caFile>, anyLine},
                             Text{"tls-ca-directory", tlsText<&TlsSettings::caDirectory>, anyLine},
                             Text{"tls-certificate-file", tlsText<&TlsSettings::certificateFile>, anyLine},
                             Text{"tls-key-file", tlsText<&TlsSettings::keyFile>, anyLine},
                             Text{"tls-key-password", tlsText<&TlsSettings::keyPassword>, anyLine, true},
                             Text{"tls-min-version", tlsText<&TlsSettings::minVersion>, tlsVersion}};

[[noreturn]] void refuse(std::string_view cause) {
    fail(TavelTKError::badArgument, TavelTKPhase::prepare, {}, cause);
}

[[noreturn]] void refuseName(std::string_view name) {
    std::string known;
    const auto add = [&](const auto& property) {
        known.append(known.empty() ? "" : ", ").append(property.name);
    };
    std::ranges::for_each(s_numbers, add);
    std::ranges::for_each(s_texts, add);
    refuse("there is no property '" + printable(name) + "'; the properties are " + known);
}

template <class Table>
auto find(const Table& table, std::string_view name) {
    const auto* const found = std::ranges::find(table, name, [](const auto& row) { return row.name; });
    return found == table.end() ? nullptr : found;
}

} // namespace

void SessionOptions::set(const std::string& name, std::int64_t value) {
    const Number* const property = find(s_numbers, name);
    if (!property && find(s_texts, name))
        refuse("the property '" + name + "' is a text and cannot be a number");
    if (!property)
        refuseName(name);
    if (value < property->least || value > property->most)
        refuse("the property '" + name + "' cannot be " + std::to_string(value) + "; give " +
               std::to_string(property->least) + " to " + std::to_string(property->most));
    property->member(*this) = value;
}

void SessionOptions::set(const std::string& name, const std::string& value) {
    if (const Text* const property = find(s_texts, name)) {
        if (const char* const remedy = property->fault(value))
            refuse("the property '" + name + "' cannot be '" +
                   (property->isSecret ? "***" : printable(value)) + "'; " + remedy);
        property->member(*this) = value;
        return;
    }
    if (!find(s_numbers, name))
        refuseName(name);
    std::int64_t parsed = 0;
    const char* const end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, parsed);
    if (error != std::errc{} || stop != end)
        refuse("the property '" + name + "' cannot be '" + printable(value) + "'; give a whole number");
    set(name, parsed);
}

} // namespace mrl::detail
