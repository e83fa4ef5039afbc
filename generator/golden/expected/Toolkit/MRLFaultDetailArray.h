// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

// Exported here too: the visibility of the template follows its arguments. Behind the class itself the
// compiler finds the attribute needless, and says so.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
class MRL_EXPORT MRLFaultDetail;
#pragma GCC diagnostic pop

/// A sequence of `faultDetail`. Its elements are borrowed.
class MRL_EXPORT MRLFaultDetailArray : public MRLSchemaArray<MRLFaultDetailArray, MRLFaultDetail> {
public:
    static constexpr ObjectType s_objectType = eMRLFaultDetailArray;
    static constexpr ObjectType s_elementType = eMRLFaultDetail;
    static constexpr const char* s_className = "MRLFaultDetailArray";
    static constexpr const char* s_schemaName = "faultDetailArray";

    MRLFaultDetailArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLFaultDetailArray(const MRLFaultDetailArray& other, MRLObjectRegistryI& registry);
    MRLFaultDetailArray(const MRLFaultDetailArray&) = delete;
    MRLFaultDetailArray& operator=(const MRLFaultDetailArray&) = delete;
    ~MRLFaultDetailArray() override;
};

extern template class MRLSchemaArray<MRLFaultDetailArray, MRLFaultDetail>;
