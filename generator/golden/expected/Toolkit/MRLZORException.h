// Generated from catalogue/classes/runtime.toml.
#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;
class MRLPromptInfo;
class MRLStringArray;
class MRLZORException_PrivateData;

/// `ZORException` in the schema, a class of its own.
/// Setters keep pointers and copy nothing; getters that take a registry make what is absent there.
class MRL_EXPORT MRLZORException : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLZORException;
    static constexpr const char* s_className = "MRLZORException";

    MRLZORException();
    /// A deep copy; `registry` owns every text and object made for it.
    MRLZORException(const MRLZORException& other, MRLObjectRegistryI& registry);
    MRLZORException(const MRLZORException&) = delete;
    MRLZORException& operator=(const MRLZORException&) = delete;
    ~MRLZORException() override;

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

    /// The value of `errorCodeString`.
    const char* getErrorCodeString() const;
    void setErrorCodeString(const char* value);

    /// The value of `messages`.
    MRLStringArray& getMessages() const;

    /// The value of `promptInfo`.
    MRLPromptInfo* getPromptInfo() const;
    MRLPromptInfo* getPromptInfo(MRLObjectRegistryI* registry);
    void setPromptInfo(MRLPromptInfo* value);

protected:
    /// setChildObject() behind its checks: of this class or one above it, by the CRC-32 of the name.
    std::size_t setMember(std::uint32_t key, void* obj, const ObjectType& type);

private:
    std::size_t getChildObjectCount() const override;

    MRLZORException_PrivateData* m_data; // owned
};
