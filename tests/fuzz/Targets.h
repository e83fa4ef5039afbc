#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

/// The places where the toolkit takes bytes that it does not trust. Each target gives any bytes at all to
/// one of them: what ends in an exception of the toolkit is well, what ends otherwise is a fault of the
/// toolkit. The fuzzer invents the bytes; the test replays those that are kept.
namespace mrl::fuzz {

using Target = void (*)(std::string_view input);

/// A reply for a message that waits for it.
void readReply(std::string_view input);
/// A request that nobody expected, for all port types.
void readRequest(std::string_view input);
/// The DOM's way to the objects.
void readDocument(std::string_view input);
/// The parts of a multipart body. The first byte is the size of the pieces it comes in.
void readMultipart(std::string_view input);
/// Base64, and back.
void decodeBase64(std::string_view input);
/// Text through the writer's encoding, and back through the parser's decoding.
void encodeXml(std::string_view input);
/// The files that an administrator writes: configuration and properties, or logging when it begins with "{".
void readConfiguration(std::string_view input);

struct NamedTarget {
    const char* name; // of its corpus too
    Target run;
};
std::span<const NamedTarget> targets();

} // namespace mrl::fuzz
