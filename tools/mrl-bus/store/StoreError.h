#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace mrl::bus {

/// Why the content store refused a request. The text of a code goes to the client as `errorCode`;
/// README.md of the bus documents each.
enum class StoreErrorCode {
    noRead,               ///< the caller may not read the one object that was named
    noWrite,              ///< the caller may not change the object, or add to it
    noPermission,         ///< the caller may not enter the container
    propertyNoPermission, ///< the property may not be set by a client
    notFound,
    ambiguousPath, ///< one object was needed, and the path selects several
    nameInUse,
    badName,
    hasChildren,
    referenced, ///< other objects refer to it
    badSearchPath,
    badProperty,
    badOption,
    badClass,
    tooMuch, ///< a limit of the store: depth, path length, time
};

/// The code as clients see it, such as "cmNoRead".
std::string_view codeText(StoreErrorCode code) noexcept;

/// A refused request: code, and a message that names the input, the place and the remedy.
class StoreError : public std::runtime_error {
public:
    StoreError(StoreErrorCode code, const std::string& message)
        : std::runtime_error(message)
        , m_code(code) {}

    StoreErrorCode code() const noexcept { return m_code; }

private:
    StoreErrorCode m_code;
};

} // namespace mrl::bus
