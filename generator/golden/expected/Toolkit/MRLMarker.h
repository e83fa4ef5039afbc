// Generated from catalogue/classes/things.toml.
#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;

/// Nothing at all.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLMarker : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLMarker;
    static constexpr const char* s_className = "MRLMarker";

    MRLMarker();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLMarker(const MRLMarker& other, MRLObjectRegistryI& registry);
    MRLMarker(const MRLMarker&) = delete;
    MRLMarker& operator=(const MRLMarker&) = delete;
    ~MRLMarker() override;

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

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;
};
