#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <vector>

namespace mrl::detail {

struct SchemaTypeRow;

/// One member of a class: what the wire needs to know of it, made ready.
struct MemberPlan {
    const char* name;
    MRLSchemaTypeI::ObjectType type; // declared
    bool isArray;
    bool isGenerated;
    std::string open;  // "<bus:name xsi:type=" with the quote; of a simple type, the whole attribute
    std::string close; // "</bus:name>" and the line end
};

/// The members of a generated class, resolved once for the process: names, declared types, tags. Constant
/// and shared by all threads.
class ClassPlan {
public:
    /// The plan for objects of `row`'s type; null for a type that is no class with members of its own: a
    /// simple type, an array, an enumeration, a class written by hand.
    static const ClassPlan* of(const SchemaTypeRow& row);

    /// In the order of getChildObjectNames().
    std::span<const MemberPlan> members() const { return m_members; }

    /// The place of the member whose name has the key (HBLUtCrc32), or `none`.
    std::size_t find(std::uint32_t key) const {
        for (std::size_t i = key % m_places.size();; i = (i + 1) % m_places.size()) {
            const Place& place = m_places[i];
            if (place.member == none || place.key == key) {
                return place.member;
            }
        }
    }
    static constexpr std::size_t none = UINT16_MAX;

    /// Classes with more members have no plan.
    static constexpr std::size_t mostMembers = 128;

    /// A member is the text of the object itself.
    bool hasOwnText() const { return m_hasOwnText; }

private:
    struct Place {
        std::uint32_t key = 0;
        std::uint16_t member = none;
    };

    explicit ClassPlan(const SchemaTypeRow& row);

    std::vector<MemberPlan> m_members;
    std::array<Place, 2 * mostMembers> m_places; // by key, never full
    bool m_hasOwnText = false;
};

} // namespace mrl::detail
