// Generated from catalogue/classes/things.toml.
#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLPart_PrivateData;

/// `part` in the schema, a class of its own.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLPart : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLPart;
    static constexpr const char* s_className = "MRLPart";

    MRLPart();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLPart(const MRLPart& other, MRLObjectRegistryI& registry);
    MRLPart(const MRLPart&) = delete;
    MRLPart& operator=(const MRLPart&) = delete;
    ~MRLPart() override;

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

    /// The value of `height`.
    int* getHeight() const;
    void setHeight(int value);
    void resetHeight();

    /// The value of `width`.
    int* getWidth() const;
    void setWidth(int value);
    void resetWidth();

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLPart_PrivateData* m_data; // owned
};
