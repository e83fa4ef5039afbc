#pragma once

#include "HBLIDOM/HBLIDOM_ParserLimits.h"

#include <array>
#include <cstdint>
#include <string_view>

/// The file that MRLProperty reads, for who checks one.
namespace MRLPropertyFile {

/// Where it is, as seen from the installation's directory for programs (HBLFmDir::resolveEffectivePath).
inline constexpr const char* s_location = "../configuration/renqproperties.xml";

/// Far more than anybody tunes, far less than what a file left there by mistake may cost. A file beyond it
/// counts as missing.
inline constexpr HBLIDOM_ParserLimits s_limits{
    .elementDepth = 64, .attributesOfElement = 64, .totalNodes = 200'000, .totalBytes = 4ULL * 1024 * 1024};

/// A number that the toolkit asks for.
struct Number {
    std::string_view name;
    std::int64_t most; ///< from 0; what is beyond is not taken as it stands
};
/// All of them; a host may have others. docs/properties.md tells what each does.
inline constexpr std::array<Number, 6> s_numbers{{
    {"outputBufferSize", 0xffffffff},
    {"outputBufferPoolSize", 65535},
    {"DocumentOutputCompression", 0x7fffffff},
    {"ExternalServicesRecordingMode", 0x7fffffff},
    {"NumberOfRequestRetries", 0xffffffff},
    {"disableSpecSignCheck", 0xffffffff},
}};

} // namespace MRLPropertyFile
