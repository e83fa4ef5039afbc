// Generated from catalogue/properties.toml.
#pragma once

#include "Toolkit/MRLBaseProp.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLPartArray;
class MRLPartArrayProp_PrivateData;

/// A stored property of type `partArray`.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLPartArrayProp : public MRLBaseProp {
public:
    static constexpr ObjectType s_objectType = eMRLPartArrayProp;
    static constexpr const char* s_className = "MRLPartArrayProp";

    MRLPartArrayProp();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLPartArrayProp(const MRLPartArrayProp& other, MRLObjectRegistryI& registry);
    MRLPartArrayProp(const MRLPartArrayProp&) = delete;
    MRLPartArrayProp& operator=(const MRLPartArrayProp&) = delete;
    ~MRLPartArrayProp() override;

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
    MRLPartArray& getValue() const;

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLPartArrayProp_PrivateData* m_data; // owned
};
