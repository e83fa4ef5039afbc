#pragma once

#include "store/SearchPath.h"

#include <optional>
#include <string>
#include <vector>

namespace mrl::bus {

/// A search path as SQL over the alias `o` of the object table.
struct Selection {
    std::string from;  ///< what follows FROM
    std::string where; ///< what follows WHERE, never empty
    std::vector<std::string> parameters;
    bool distinct = false; ///< whether a row can come up twice

    static Selection of(const SearchPath& path);
};

/// The fixed beginning of a branch: the steps that name one object each, as its canonical path.
struct FixedPart {
    std::string path;      ///< '' for the root
    std::size_t steps = 0; ///< how many steps of the branch it takes

    static FixedPart of(const SearchPath::Branch& branch);
};

/// The canonical path of the one object that a search path names; none when it selects by a rule.
std::optional<std::string> exactPath(const SearchPath& path);

} // namespace mrl::bus
