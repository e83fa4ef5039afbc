// Generated from catalogue/properties.toml.
#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLSchemaInfo;
class MRLBaseProp_PrivateData;

/// What all property wrappers share.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLBaseProp : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLBaseProp;
    static constexpr const char* s_className = "MRLBaseProp";

    MRLBaseProp();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLBaseProp(const MRLBaseProp& other, MRLObjectRegistryI& registry);
    MRLBaseProp(const MRLBaseProp&) = delete;
    MRLBaseProp& operator=(const MRLBaseProp&) = delete;
    ~MRLBaseProp() override;

    const std::string& getGeneratedObjectName() const override;
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;
    virtual int operator==(const MRLSchemaTypeI& other) const;
    virtual int operator!=(const MRLSchemaTypeI& other) const;

    /// schemaInfo: What may be done with the property.
    MRLSchemaInfo* getSchemaInfo() const;
    MRLSchemaInfo* getSchemaInfo(MRLObjectRegistryI* registry);
    void setSchemaInfo(MRLSchemaInfo* value);

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLBaseProp_PrivateData* m_data; // owned
};
