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
    std::string searchPath{};
    std::vector<std::string> properties{}; ///< none: the search path alone
    std::vector<SortKey> sortBy{};         ///< ties, and no key at all: in the order of the search paths
    std::optional<std::int64_t> maxObjects{};
    std::int64_t skipObjects = 0;
    std::optional<Right> permission{}; ///< only objects on which the caller has this right
    /// What to give of the objects that a reference such as owner names; the search path for others.
    std::map<std::string, std::vector<std::string>, std::less<>> referenceProperties{};
};

/// What `add` does about an object whose name its container holds already.
enum class NameClash { fail, replace, update };

/// What becomes of a property that refers to an object which does not exist.
enum class DeadReference { fail, drop };

struct AddOptions {
    NameClash clash = NameClash::fail;
    bool keepReferenced = false; ///< refuse to replace an object that others refer to
    DeadReference deadReference = DeadReference::fail;
    std::vector<std::string> returnProperties{}; ///< none: the search path alone
};

struct UpdateOptions {
    DeadReference deadReference = DeadReference::fail;
    std::vector<std::string> returnProperties{};
};

struct DeleteOptions {
    bool recursive = false;      ///< without it an object that has children is refused
    bool keepReferenced = false; ///< refuse an object that others, not deleted with it, refer to
    bool force = false;          ///< the right to set the policies of the container makes up for write
};

} // namespace mrl::bus
