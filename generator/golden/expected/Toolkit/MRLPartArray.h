// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

// Exported here too: the visibility of the template follows its arguments. Behind the class itself the
// compiler finds the attribute needless, and says so.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
class MRL_EXPORT MRLPart;
#pragma GCC diagnostic pop

/// A sequence of `part`. Its elements are borrowed.
class MRL_EXPORT MRLPartArray : public MRLSchemaArray<MRLPartArray, MRLPart> {
public:
    static constexpr ObjectType s_objectType = eMRLPartArray;
    static constexpr ObjectType s_elementType = eMRLPart;
    static constexpr const char* s_className = "MRLPartArray";
    static constexpr const char* s_schemaName = "partArray";

    MRLPartArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLPartArray(const MRLPartArray& other, MRLObjectRegistryI& registry);
    MRLPartArray(const MRLPartArray&) = delete;
    MRLPartArray& operator=(const MRLPartArray&) = delete;
    ~MRLPartArray() override;
};

extern template class MRLSchemaArray<MRLPartArray, MRLPart>;
