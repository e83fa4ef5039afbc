// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

// Exported here too: the visibility of the template follows its arguments. Behind the class itself the
// compiler finds the attribute needless, and says so.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
class MRL_EXPORT MRLThing;
#pragma GCC diagnostic pop

/// A sequence of `thing`. Its elements are borrowed.
class MRL_EXPORT MRLThingArray : public MRLSchemaArray<MRLThingArray, MRLThing> {
public:
    static constexpr ObjectType s_objectType = eMRLThingArray;
    static constexpr ObjectType s_elementType = eMRLThing;
    static constexpr const char* s_className = "MRLThingArray";
    static constexpr const char* s_schemaName = "thingArray";

    MRLThingArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLThingArray(const MRLThingArray& other, MRLObjectRegistryI& registry);
    MRLThingArray(const MRLThingArray&) = delete;
    MRLThingArray& operator=(const MRLThingArray&) = delete;
    ~MRLThingArray() override;
};

extern template class MRLSchemaArray<MRLThingArray, MRLThing>;
