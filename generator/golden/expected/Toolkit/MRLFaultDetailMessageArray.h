// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

// Exported here too: the visibility of the template follows its arguments. Behind the class itself the
// compiler finds the attribute needless, and says so.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
class MRL_EXPORT MRLFaultDetailMessage;
#pragma GCC diagnostic pop

/// A sequence of `faultDetailMessage`. Its elements are borrowed.
class MRL_EXPORT MRLFaultDetailMessageArray : public MRLSchemaArray<MRLFaultDetailMessageArray, MRLFaultDetailMessage> {
public:
    static constexpr ObjectType s_objectType = eMRLFaultDetailMessageArray;
    static constexpr ObjectType s_elementType = eMRLFaultDetailMessage;
    static constexpr const char* s_className = "MRLFaultDetailMessageArray";
    static constexpr const char* s_schemaName = "faultDetailMessageArray";

    MRLFaultDetailMessageArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLFaultDetailMessageArray(const MRLFaultDetailMessageArray& other, MRLObjectRegistryI& registry);
    MRLFaultDetailMessageArray(const MRLFaultDetailMessageArray&) = delete;
    MRLFaultDetailMessageArray& operator=(const MRLFaultDetailMessageArray&) = delete;
    ~MRLFaultDetailMessageArray() override;
};

extern template class MRLSchemaArray<MRLFaultDetailMessageArray, MRLFaultDetailMessage>;
