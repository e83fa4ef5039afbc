#pragma once

#include "logipf2/LogIndication.h"

/// An audit record: an operation and the data that belongs to it.
class MRL_EXPORT LogAuditIndication : public LogIndication {
public:
    /// See LogIndication.
    LogAuditIndication(const I18NString& component, int version);

    void setOperation(const char* operation) { m_operation = operation; } // null is empty
    void setLogData(const I18NString& data) { m_logData = data; }

    const char* getIndicationType() const override;
    void getFields(LogFieldsI& fields) const override;

private:
    I18NString m_operation;
    I18NString m_logData;
};
