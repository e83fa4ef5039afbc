// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

/// A sequence of `xs:string`. Its elements are borrowed.
class MRL_EXPORT MRLStringArray : public MRLSchemaArray<MRLStringArray, const char*> {
public:
    static constexpr ObjectType s_objectType = eMRLStringArray;
    static constexpr ObjectType s_elementType = eString;
    static constexpr const char* s_className = "MRLStringArray";
    static constexpr const char* s_schemaName = "stringArray";

    MRLStringArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLStringArray(const MRLStringArray& other, MRLObjectRegistryI& registry);
    MRLStringArray(const MRLStringArray&) = delete;
    MRLStringArray& operator=(const MRLStringArray&) = delete;
    ~MRLStringArray() override;
};

extern template class MRLSchemaArray<MRLStringArray, const char*>;
