// Generated from catalogue/classes/things.toml.
#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLLabel_PrivateData;

/// A text of its own.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLLabel : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLLabel;
    static constexpr const char* s_className = "MRLLabel";

    MRLLabel();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLLabel(const MRLLabel& other, MRLObjectRegistryI& registry);
    MRLLabel(const MRLLabel&) = delete;
    MRLLabel& operator=(const MRLLabel&) = delete;
    ~MRLLabel() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;
    virtual int operator==(const MRLSchemaTypeI& other) const;
    virtual int operator!=(const MRLSchemaTypeI& other) const;

    /// The text.
    const char* getValue() const;
    void setValue(const char* value);

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLLabel_PrivateData* m_data; // owned
};
