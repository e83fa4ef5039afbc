#include "store/PropertyRules.h"

#include <algorithm>
#include <array>

namespace mrl::bus {

namespace {

using Kind = PropertyRule::Kind;

constexpr std::array<PropertyRule, 15> rules{{
    {"ancestors", Kind::computed, "", false},
    {"creationTime", Kind::time, "o.created", false},
    {"defaultName", Kind::text, "o.name", true},
    {"disabled", Kind::truth, "o.disabled", true},
    {"hasChildren", Kind::truth, "EXISTS (SELECT 1 FROM object c WHERE c.parent = o.id)", false},
    {"hidden", Kind::truth, "o.hidden", true},
    {"modificationTime", Kind::time, "o.modified", false},
    {"name", Kind::computed, "o.name", true},
    {"objectClass", Kind::text, "o.class", false},
    {"owner", Kind::reference, "(SELECT w.name FROM object w WHERE w.id = o.owner)", true},
    {"parent", Kind::reference, "", false},
    {"permissions", Kind::computed, "", false},
    {"searchPath", Kind::text, "CASE o.path WHEN '' THEN '/' ELSE o.path END", false},
    {"storeID", Kind::text, "o.store_id", false},
    {"version", Kind::number, "o.version", false},
}};

static_assert(std::ranges::is_sorted(rules, {}, &PropertyRule::name));

} // namespace

const PropertyRule* findPropertyRule(std::string_view name) noexcept {
    const auto* found = std::ranges::lower_bound(rules, name, {}, &PropertyRule::name);
    return found != rules.end() && found->name == name ? found : nullptr;
}

} // namespace mrl::bus
