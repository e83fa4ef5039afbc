#pragma once

#include "I18NRes/CrcBuckets.h"
#include "Toolkit/MRLMemberValues.h"
#include "Toolkit/MRLSchemaTypeI.h"

#include <cstddef>
#include <cstdint>

class MRLObjectRegistryI;

namespace mrl::detail {

/// What the factory knows of one generated type.
struct SchemaTypeRow {
    MRLSchemaTypeI::ObjectType type;
    const char* xsiName;                                                 // "bus:policyArray"
    MRLSchemaTypeI* (*create)();                                         // null for an abstract type
    MRLSchemaTypeI* (*copy)(const MRLSchemaTypeI&, MRLObjectRegistryI&); // null for an abstract type
    const char* elementXsiName;                                          // of an array; else null
    bool isArrayOfClass;                                                 // an array, not of primitives
    bool (*readMembers)(MRLSchemaTypeI&, void**);                        // of a concrete class; else null
};

inline constexpr unsigned schemaTypeBucketBits = 11;
using SchemaTypeBuckets = CrcBuckets<schemaTypeBucketBits>;

inline constexpr auto schemaTypeKey = [](const SchemaTypeRow& row) {
    return static_cast<std::uint32_t>(row.type);
};

template <std::size_t N>
consteval SchemaTypeBuckets schemaTypeBuckets(const SchemaTypeRow (&rows)[N]) {
    return makeCrcBuckets<schemaTypeBucketBits>(rows, schemaTypeKey);
}

/// All generated types, sorted by their number without sign.
struct SchemaTypeTable {
    const SchemaTypeRow* rows;
    std::size_t count;
    const SchemaTypeBuckets* buckets;
};

/// Defined by the generated source; a constant.
extern const SchemaTypeTable g_schemaTypes;

/// The row of any type, generated or not; null when there is none.
const SchemaTypeRow* findSchemaType(MRLSchemaTypeI::ObjectType type);

/// @throws HBLAssertError, "HBL_ASSERT(obj.isa(MRLSchemaTypeI::e<class>));", when it is not.
void requireIsa(const MRLSchemaTypeI& obj, MRLSchemaTypeI::ObjectType type, const char* className);

template <class T>
MRLSchemaTypeI* createSchemaType() {
    return new T();
}

template <class T>
MRLSchemaTypeI* copySchemaType(const MRLSchemaTypeI& obj, MRLObjectRegistryI& registry) {
    requireIsa(obj, T::s_objectType, T::s_className);
    return new T(static_cast<const T&>(obj), registry);
}

} // namespace mrl::detail
