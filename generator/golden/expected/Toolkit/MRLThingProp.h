// Generated from catalogue/properties.toml.
#pragma once

#include "Toolkit/MRLBaseProp.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLThing;
class MRLThingProp_PrivateData;

/// A stored property of type `thing`.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLThingProp : public MRLBaseProp {
public:
    static constexpr ObjectType s_objectType = eMRLThingProp;
    static constexpr const char* s_className = "MRLThingProp";

    MRLThingProp();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLThingProp(const MRLThingProp& other, MRLObjectRegistryI& registry);
    MRLThingProp(const MRLThingProp&) = delete;
    MRLThingProp& operator=(const MRLThingProp&) = delete;
    ~MRLThingProp() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;
    int operator==(const MRLSchemaTypeI& other) const override;
    int operator!=(const MRLSchemaTypeI& other) const override;

    /// value: The value as the store has it.
    MRLThing* getValue() const;
    MRLThing* getValue(MRLObjectRegistryI* registry);
    void setValue(MRLThing* value);

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLThingProp_PrivateData* m_data; // owned
};
