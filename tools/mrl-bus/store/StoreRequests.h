#pragma once

#include "store/Rights.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace mrl::bus {

struct SortKey {
    std::string property;
    bool descending = false;
};

/// Which objects, and what of them.
struct QueryRequest {
    std::string searchPath;
    std::vector<std::string> properties; ///< none: the search path alone
    std::vector<SortKey> sortBy;         ///< ties, and no key at all: in the order of the search paths
    std::optional<std::int64_t> maxObjects;
    std::int64_t skipObjects = 0;
    std::optional<Right> permission; ///< only objects on which the caller has this right
    /// What to give of the objects that a reference such as owner names; the search path for others.
    std::map<std::string, std::vector<std::string>, std::less<>> referenceProperties;
};

/// What `add` does about an object whose name its container holds already.
enum class NameClash { fail, replace, update };

struct AddOptions {
    NameClash clash = NameClash::fail;
    std::vector<std::string> returnProperties; ///< none: the search path alone
};

struct UpdateOptions {
    std::vector<std::string> returnProperties;
};

struct DeleteOptions {
    bool recursive = false; ///< without it an object that has children is refused
};

} // namespace mrl::bus
