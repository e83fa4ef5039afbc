#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

#include <memory>
#include <string>

class MRLMessageArray;
class MRLUndocumentedFaultDetail_PrivateData;

/// One item of a fault's detail as older services write it: plain elements without types. Texts are
/// borrowed; the array of messages is part of the object, the messages in it are not.
class MRL_EXPORT MRLUndocumentedFaultDetail : public MRLSchemaTypeI {
public:
    static constexpr ObjectType s_objectType = eMRLUndocumentedFaultDetail;
    static constexpr const char* s_className = "MRLUndocumentedFaultDetail";

    MRLUndocumentedFaultDetail();
    ~MRLUndocumentedFaultDetail() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;

    /// @throws MRLException for a name other than "severity", "errorCode" and "message".
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;

    /// "message" appends one MRLMessage to the messages.
    /// @return 0
    /// @throws MRLException for any other name, and for a value of the wrong type.
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;

    /// @throws HBLAssertError always: only the fault serializer writes such an object.
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;

private:
    std::size_t getChildObjectCount() const override;

public:
    virtual bool operator==(const MRLSchemaTypeI& other) const;
    virtual bool operator!=(const MRLSchemaTypeI& other) const;

    const char* getSeverity() const;
    void setSeverity(const char* severity);
    const char* getErrorCodeString() const;
    void setErrorCodeString(const char* code);
    MRLMessageArray& getMessage() const;

private:
    std::unique_ptr<MRLUndocumentedFaultDetail_PrivateData> m_data;
};
