// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

/// A sequence of `xs:dateTime`. Its elements are borrowed.
class MRL_EXPORT MRLDateTimeArray : public MRLSchemaArray<MRLDateTimeArray, const char*> {
public:
    static constexpr ObjectType s_objectType = eMRLDateTimeArray;
    static constexpr ObjectType s_elementType = eDateTime;
    static constexpr const char* s_className = "MRLDateTimeArray";
    static constexpr const char* s_schemaName = "dateTimeArray";

    MRLDateTimeArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLDateTimeArray(const MRLDateTimeArray& other, MRLObjectRegistryI& registry);
    MRLDateTimeArray(const MRLDateTimeArray&) = delete;
    MRLDateTimeArray& operator=(const MRLDateTimeArray&) = delete;
    ~MRLDateTimeArray() override;
};

extern template class MRLSchemaArray<MRLDateTimeArray, const char*>;
