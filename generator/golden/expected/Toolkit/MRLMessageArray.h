// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

// Exported here too: the visibility of the template follows its arguments. Behind the class itself the
// compiler finds the attribute needless, and says so.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
class MRL_EXPORT MRLMessage;
#pragma GCC diagnostic pop

/// A sequence of `message`. Its elements are borrowed.
class MRL_EXPORT MRLMessageArray : public MRLSchemaArray<MRLMessageArray, MRLMessage> {
public:
    static constexpr ObjectType s_objectType = eMRLMessageArray;
    static constexpr ObjectType s_elementType = eMRLMessage;
    static constexpr const char* s_className = "MRLMessageArray";
    static constexpr const char* s_schemaName = "messageArray";

    MRLMessageArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLMessageArray(const MRLMessageArray& other, MRLObjectRegistryI& registry);
    MRLMessageArray(const MRLMessageArray&) = delete;
    MRLMessageArray& operator=(const MRLMessageArray&) = delete;
    ~MRLMessageArray() override;
};

extern template class MRLSchemaArray<MRLMessageArray, MRLMessage>;
