// Generated from catalogue/properties.toml.
#pragma once

#include "Toolkit/MRLBaseProp.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLBooleanProp_PrivateData;

/// A stored property of type `boolean`.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLBooleanProp : public MRLBaseProp {
public:
    static constexpr ObjectType s_objectType = eMRLBooleanProp;
    static constexpr const char* s_className = "MRLBooleanProp";

    MRLBooleanProp();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLBooleanProp(const MRLBooleanProp& other, MRLObjectRegistryI& registry);
    MRLBooleanProp(const MRLBooleanProp&) = delete;
    MRLBooleanProp& operator=(const MRLBooleanProp&) = delete;
    ~MRLBooleanProp() override;

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
    int* getValue() const;
    void setValue(int value);
    void resetValue();

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLBooleanProp_PrivateData* m_data; // owned
};
