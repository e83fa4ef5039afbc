// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

/// A sequence of `xs:int`. Its elements are borrowed.
class MRL_EXPORT MRLIntArray : public MRLSchemaArray<MRLIntArray, int> {
public:
    static constexpr ObjectType s_objectType = eMRLIntArray;
    static constexpr ObjectType s_elementType = eInt;
    static constexpr const char* s_className = "MRLIntArray";
    static constexpr const char* s_schemaName = "intArray";

    MRLIntArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLIntArray(const MRLIntArray& other, MRLObjectRegistryI& registry);
    MRLIntArray(const MRLIntArray&) = delete;
    MRLIntArray& operator=(const MRLIntArray&) = delete;
    ~MRLIntArray() override;
};

extern template class MRLSchemaArray<MRLIntArray, int>;
