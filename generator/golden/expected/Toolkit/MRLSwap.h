// Generated from catalogue/classes/things.toml.
#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLSwap_PrivateData;

/// Members in an order of their own.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLSwap : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLSwap;
    static constexpr const char* s_className = "MRLSwap";

    MRLSwap();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLSwap(const MRLSwap& other, MRLObjectRegistryI& registry);
    MRLSwap(const MRLSwap&) = delete;
    MRLSwap& operator=(const MRLSwap&) = delete;
    ~MRLSwap() override;

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

    /// The value of `second`.
    const char* getSecond() const;
    void setSecond(const char* value);

    /// The value of `first`.
    const char* getFirst() const;
    void setFirst(const char* value);

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLSwap_PrivateData* m_data; // owned
};
