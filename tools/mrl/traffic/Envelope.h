#pragma once

#include "HBLIDOM/HBLIDOM_Document.h"

#include <cstddef>
#include <filesystem>
#include <string>

namespace mrl::tool {

/// What stands in a request or reply file.
struct Envelope {
    enum Kind {
        absent,    ///< there is no file
        empty,     ///< the file is empty
        encrypted, ///< the cipher text of a trusted request
        malformed, ///< no XML, or too large to be looked into
        foreign,   ///< XML, and no SOAP envelope
        sound,
    };
    Kind kind = absent;
    std::string problem;        ///< of malformed and foreign, in words
    HBLIDOM_Document document;  ///< of foreign and sound
    HBLIDOM_Element content;    ///< the first element of the body; null when it is empty
    std::string operation;      ///< the local name of `content`
    std::string faultText;      ///< of a fault, else empty
    std::string faultCode;      ///< the error code of its first detail, else empty
    std::size_t references = 0; ///< attachments that the envelope refers to, each counted once
    std::uintmax_t size = 0;    ///< bytes of the file

    bool isFault() const { return operation == "Fault"; }

    /// @param path empty for no file.
    /// @throws TrafficError when the file cannot be read.
    static Envelope read(const std::filesystem::path& path);
};

/// A file's bytes.
/// @throws TrafficError when it cannot be read.
std::string bytesOf(const std::filesystem::path& path);

} // namespace mrl::tool
