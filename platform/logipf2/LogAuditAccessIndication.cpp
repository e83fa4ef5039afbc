#include "logipf2/LogAuditAccessIndication.h"

#include "logipf2/LogFieldsI.h"

LogAuditAccessIndication::LogAuditAccessIndication(const I18NString& component, int version)
    : LogAuditIndication(component, version) {}

const char* LogAuditAccessIndication::getIndicationType() const {
    return "LogAuditAccessIndication";
}

void LogAuditAccessIndication::getFields(LogFieldsI& fields) const {
    LogAuditIndication::getFields(fields);
    fields.text("objectType", m_objectType);
    fields.text("objectPath", m_objectPath);
    fields.text("status", m_status);
    fields.text("errorMessage", m_errorMessage);
}
