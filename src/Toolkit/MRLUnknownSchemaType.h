#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include <string>

class MRLPrivateData;

/// Stands in for a value whose type the toolkit does not know. It has a name and no children.
class MRL_EXPORT MRLUnknownSchemaType : public MRLSchemaTypeI {
public:
    MRLUnknownSchemaType();
    explicit MRLUnknownSchemaType(const std::string& name);
    ~MRLUnknownSchemaType() override;

    const std::string& getName() const { return m_name; }
    void setName(const std::string& name) { m_name = name; }

    ObjectType getObjectType() const override;

    /// The name given to this object: here it differs from object to object.
    const std::string& getGeneratedObjectName() const override;
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;

private:
    std::size_t getChildObjectCount() const override;

public:
    /// Only the same object is equal.
    virtual int operator==(const MRLSchemaTypeI& other) const;
    virtual int operator!=(const MRLSchemaTypeI& other) const;

private:
    [[maybe_unused]] MRLPrivateData* m_private = nullptr; // borrowed
    std::string m_name;
};
