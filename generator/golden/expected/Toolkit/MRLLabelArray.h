// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

// Exported here too: the visibility of the template follows its arguments. Behind the class itself the
// compiler finds the attribute needless, and says so.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
class MRL_EXPORT MRLLabel;
#pragma GCC diagnostic pop

/// A sequence of `label`. Its elements are borrowed.
class MRL_EXPORT MRLLabelArray : public MRLSchemaArray<MRLLabelArray, MRLLabel> {
public:
    static constexpr ObjectType s_objectType = eMRLLabelArray;
    static constexpr ObjectType s_elementType = eMRLLabel;
    static constexpr const char* s_className = "MRLLabelArray";
    static constexpr const char* s_schemaName = "labelArray";

    MRLLabelArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLLabelArray(const MRLLabelArray& other, MRLObjectRegistryI& registry);
    MRLLabelArray(const MRLLabelArray&) = delete;
    MRLLabelArray& operator=(const MRLLabelArray&) = delete;
    ~MRLLabelArray() override;
};

extern template class MRLSchemaArray<MRLLabelArray, MRLLabel>;
