// Generated from catalogue/classes/things.toml.
#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLThing_PrivateData;

/// The base of all things. Its description is long enough to show that the lines of a comment are broken
/// where the page ends.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLThing : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLThing;
    static constexpr const char* s_className = "MRLThing";

    MRLThing();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLThing(const MRLThing& other, MRLObjectRegistryI& registry);
    MRLThing(const MRLThing&) = delete;
    MRLThing& operator=(const MRLThing&) = delete;
    ~MRLThing() override;

    const std::string& getGeneratedObjectName() const override;
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;
    virtual int operator==(const MRLSchemaTypeI& other) const;
    virtual int operator!=(const MRLSchemaTypeI& other) const;

    /// name: What it is called.
    const char* getName() const;
    void setName(const char* value);

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLThing_PrivateData* m_data; // owned
};
