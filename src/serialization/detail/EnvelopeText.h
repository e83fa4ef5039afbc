#pragma once

#include "Toolkit/MRLNamespaces.h"

#include <array>
#include <cstddef>
#include <string_view>

// The fixed texts of an envelope. Pieces are joined when the library is built, so that each goes out
// whole and with a known length.
namespace mrl::detail {

/// Joins texts of static storage at compile time.
template <const std::string_view&... pieces>
class Joined {
    static constexpr auto join() {
        std::array<char, (pieces.size() + ... + 0)> text{};
        auto place = text.begin();
        ((place = std::copy(pieces.begin(), pieces.end(), place)), ...);
        return text;
    }
    static constexpr auto s_text = join();

public:
    static constexpr std::string_view value{s_text.data(), s_text.size()};
};

namespace text {

inline constexpr std::string_view prolog = R"(<?xml version="1.0" encoding="UTF-8"?>)";
inline constexpr std::string_view headerOpen = "<SOAP-ENV:Header>";
inline constexpr std::string_view headerClose = "</SOAP-ENV:Header>";
inline constexpr std::string_view bodyOpen = "<SOAP-ENV:Body>";
inline constexpr std::string_view bodyClose = "</SOAP-ENV:Body>";
inline constexpr std::string_view envelopeClose = "</SOAP-ENV:Envelope>";
inline constexpr std::string_view tavelHeader = "bus:tavelHeader";

inline constexpr std::string_view quote = "\"";
inline constexpr std::string_view end = ">";
inline constexpr std::string_view soapEnvelope = ns::soapEnvelope;
inline constexpr std::string_view soapEncoding = ns::soapEncoding;
inline constexpr std::string_view bus = ns::bus;
inline constexpr std::string_view xmlSchema = ns::xmlSchema;
inline constexpr std::string_view xmlSchemaInstance = ns::xmlSchemaInstance;
inline constexpr std::string_view envelopeIs = R"(<SOAP-ENV:Envelope xmlns:SOAP-ENV=")";
inline constexpr std::string_view encodingIs = R"( xmlns:SOAP-ENC=")";
inline constexpr std::string_view busIs = R"( xmlns:bus=")";
inline constexpr std::string_view instanceIs = R"( xmlns:xsi=")";
inline constexpr std::string_view schemaIs = R"( xmlns:xs=")";
inline constexpr std::string_view styleIs = R"( SOAP-ENV:encodingStyle=")";

/// The four declarations that an element needs on its own, each behind a blank.
inline constexpr std::string_view namespaces =
    Joined<encodingIs, soapEncoding, quote, busIs, bus, quote, instanceIs, xmlSchemaInstance, quote, schemaIs,
           xmlSchema, quote>::value;

inline constexpr std::string_view envelopeOpen =
    Joined<envelopeIs, soapEnvelope, quote, namespaces, styleIs, soapEncoding, quote, end>::value;

} // namespace text
} // namespace mrl::detail
