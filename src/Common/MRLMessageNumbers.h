#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

/// The numbers of the messages of the component "MRLmsgs", with the parameters of each in order. The
/// texts stand in resources/MRLmsgs_<language>.txt; a test holds the two together.
namespace msg {

/// The component of all of them.
inline constexpr const char* component = "MRLmsgs";

// Port types, types and members
inline constexpr std::uint32_t unknownOperation = 0xa64112c6; // operation, port type
inline constexpr std::uint32_t unknownMember = 0xa641bf21;    // name asked for, class label
inline constexpr std::uint32_t typeNotCreatable = 0xa647ec7b; // type name
inline constexpr std::uint32_t wrongMemberType = 0xa647c21f;  // class, member, expected, actual
inline constexpr std::uint32_t unknownEnumValue = 0xa645dc29; // text

// Envelopes
inline constexpr std::uint32_t envelopeElementExpected = 0xa646d8c9; // "Envelope" or "Body"
inline constexpr std::uint32_t unknownNamespace = 0xa6456bb1;        // operation, namespace
inline constexpr std::uint32_t malformedXml = 0xa6441f8b;            // the parser's words
inline constexpr std::uint32_t unknownParseFailure = 0xa649ba8d;     // none

// Values in envelopes
inline constexpr std::uint32_t arrayTypeMissing = 0xa64ba852;       // element
inline constexpr std::uint32_t arrayTypeWithoutPrefix = 0xa64cb90c; // arrayType, element
inline constexpr std::uint32_t unresolvedType = 0xa648385c;         // type, element
inline constexpr std::uint32_t elementInNil = 0xa641d35c;           // name of the nil element
inline constexpr std::uint32_t textInNil = 0xa64152ea;              // name of the nil element
inline constexpr std::uint32_t elementInReference = 0xa640320b;     // name, content id
inline constexpr std::uint32_t textInReference = 0xa64acda5;        // name, content id
inline constexpr std::uint32_t elementInSimpleValue = 0xa64aa334;   // name
inline constexpr std::uint32_t repeatedMember = 0xa64b8476;         // parent, name
inline constexpr std::uint32_t wrongItemType = 0xa64bca5d;          // actual, declared
inline constexpr std::uint32_t notDerivedFrom = 0xa64bd4db;         // actual, expected, name
inline constexpr std::uint32_t wrongSimpleType = 0xa6487d84;        // actual, expected, name
inline constexpr std::uint32_t invalidNumber = 0xa6407f89;          // name, type

// Session
inline constexpr std::uint32_t unknownFailure = 0xa64eb6c6;            // none
inline constexpr std::uint32_t recordingDirectoryNotMade = 0xa64e1d07; // path, the system's reason
inline constexpr std::uint32_t callNotRecorded = 0xa64e5b32;           // path of the reply

// Files and commands
inline constexpr std::uint32_t malformedXmlFile = 0x9e74dda8;     // file, line, column
inline constexpr std::uint32_t malformedXmlDocument = 0x9e79284e; // line, column
inline constexpr std::uint32_t commandNotStarted = 0x9e7d4834;    // command, errno, its text

/// A number and how many parameters its text takes.
struct Declared {
    std::uint32_t number;
    std::size_t parameters;
};

inline constexpr std::array<Declared, 28> all{{
    {unknownOperation, 2},       {unknownMember, 2},
    {typeNotCreatable, 1},       {wrongMemberType, 4},
    {unknownEnumValue, 1},       {envelopeElementExpected, 1},
    {unknownNamespace, 2},       {malformedXml, 1},
    {unknownParseFailure, 0},    {arrayTypeMissing, 1},
    {arrayTypeWithoutPrefix, 2}, {unresolvedType, 2},
    {elementInNil, 1},           {textInNil, 1},
    {elementInReference, 2},     {textInReference, 2},
    {elementInSimpleValue, 1},   {repeatedMember, 2},
    {wrongItemType, 2},          {notDerivedFrom, 3},
    {wrongSimpleType, 3},        {invalidNumber, 2},
    {unknownFailure, 0},         {recordingDirectoryNotMade, 2},
    {callNotRecorded, 1},        {malformedXmlFile, 3},
    {malformedXmlDocument, 2},   {commandNotStarted, 3},
}};

} // namespace msg
