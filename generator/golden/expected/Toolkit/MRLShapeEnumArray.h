// Generated from catalogue/arrays.toml.
#pragma once

#include "Toolkit/MRLSchemaArray.h"

#include "HBLCore/MRLExport.h"

// Exported here too: the visibility of the template follows its arguments. Behind the class itself the
// compiler finds the attribute needless, and says so.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wattributes"
class MRL_EXPORT MRLShapeEnum;
#pragma GCC diagnostic pop

/// A sequence of `shapeEnum`. Its elements are borrowed.
class MRL_EXPORT MRLShapeEnumArray : public MRLSchemaArray<MRLShapeEnumArray, MRLShapeEnum> {
public:
    static constexpr ObjectType s_objectType = eMRLShapeEnumArray;
    static constexpr ObjectType s_elementType = eMRLShapeEnum;
    static constexpr const char* s_className = "MRLShapeEnumArray";
    static constexpr const char* s_schemaName = "shapeEnumArray";

    MRLShapeEnumArray();
    /// A deep copy; `registry` owns what is made for it.
    MRLShapeEnumArray(const MRLShapeEnumArray& other, MRLObjectRegistryI& registry);
    MRLShapeEnumArray(const MRLShapeEnumArray&) = delete;
    MRLShapeEnumArray& operator=(const MRLShapeEnumArray&) = delete;
    ~MRLShapeEnumArray() override;
};

extern template class MRLSchemaArray<MRLShapeEnumArray, MRLShapeEnum>;
