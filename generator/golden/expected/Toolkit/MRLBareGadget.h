// Generated from catalogue/classes/things.toml.
#pragma once

#include "Toolkit/MRLGadget.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;

/// `bareGadget` in the schema, a kind of `gadget`.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLBareGadget : public MRLGadget {
public:
    static constexpr ObjectType s_objectType = eMRLBareGadget;
    static constexpr const char* s_className = "MRLBareGadget";

    MRLBareGadget();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLBareGadget(const MRLBareGadget& other, MRLObjectRegistryI& registry);
    MRLBareGadget(const MRLBareGadget&) = delete;
    MRLBareGadget& operator=(const MRLBareGadget&) = delete;
    ~MRLBareGadget() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;
    int isa(ObjectType type) const override;
    int operator==(const MRLSchemaTypeI& other) const override;
    int operator!=(const MRLSchemaTypeI& other) const override;
};
