// Generated from catalogue/properties.toml.
#pragma once

#include "Toolkit/MRLBaseProp.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLShapeEnum;
class MRLShapeEnumArray;
class MRLRefProp_PrivateData;

/// A reference and what is wanted of it.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLRefProp : public MRLBaseProp {
public:
    static constexpr ObjectType s_objectType = eMRLRefProp;
    static constexpr const char* s_className = "MRLRefProp";

    MRLRefProp();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLRefProp(const MRLRefProp& other, MRLObjectRegistryI& registry);
    MRLRefProp(const MRLRefProp&) = delete;
    MRLRefProp& operator=(const MRLRefProp&) = delete;
    ~MRLRefProp() override;

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

    /// The value of `properties`.
    MRLShapeEnumArray& getProperties() const;

    /// The value of `refPropName`.
    MRLShapeEnum* getRefPropName() const;
    MRLShapeEnum* getRefPropName(MRLObjectRegistryI* registry);
    void setRefPropName(MRLShapeEnum* value);

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLRefProp_PrivateData* m_data; // owned
};
