#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

#include <string>

/// One parameter outside a message: its name, type and value. The value is borrowed.
class MRL_EXPORT MRLMessageParam {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    /// @param name null leaves the name empty.
    MRLMessageParam(const char* name, const ObjectType& type, void* value);
    virtual ~MRLMessageParam();

    MRLMessageParam(const MRLMessageParam&) = delete;
    MRLMessageParam& operator=(const MRLMessageParam&) = delete;

    /// Null for an empty name.
    const char* getParamName() const { return m_paramName.empty() ? nullptr : m_paramName.c_str(); }
    ObjectType getParamType() const { return m_paramType; }
    void* getParamValue() const { return m_paramValue; }

    /// Stores the value, once only.
    /// @throws HBLAssertError when there is one already.
    void setParamValue(void* value);

private:
    std::string m_paramName;
    ObjectType m_paramType;
    void* m_paramValue;
};
