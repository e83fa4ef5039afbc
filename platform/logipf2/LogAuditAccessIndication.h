#pragma once

#include "logipf2/LogAuditIndication.h"

/// An audit record about an object: which one, and how the operation on it ended.
class MRL_EXPORT LogAuditAccessIndication : public LogAuditIndication {
public:
    /// See LogIndication.
    LogAuditAccessIndication(const I18NString& component, int version);

    void setObjectType(const char* type) { m_objectType = type; } // null is empty
    void setObjectPath(const I18NString& path) { m_objectPath = path; }
    void setStatus(const I18NString& status) { m_status = status; }
    void setErrorMessage(const I18NString& message) { m_errorMessage = message; }

    const char* getIndicationType() const override;
    void getFields(LogFieldsI& fields) const override;

private:
    I18NString m_objectType;
    I18NString m_objectPath;
    I18NString m_status;
    I18NString m_errorMessage;
};
