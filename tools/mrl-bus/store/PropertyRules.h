#pragma once

#include <span>
#include <string_view>

namespace mrl::bus {

/// What the store knows of a property that every object has: where its value comes from and whether a
/// client may set it. All others are rows of the property table and may be set freely.
struct PropertyRule {
    enum class Kind { text, truth, number, time, reference, computed };

    std::string_view name;
    Kind kind;
    std::string_view column; ///< SQL over the object `o`; empty when it cannot be sorted or tested
    bool writable;
};

/// The rule of a built-in property, null for one kept in rows.
const PropertyRule* findPropertyRule(std::string_view name) noexcept;

} // namespace mrl::bus
