#include "logipf2/LogAuditIndication.h"

#include "logipf2/LogFieldsI.h"

LogAuditIndication::LogAuditIndication(const I18NString& component, int version)
    : LogIndication(component, version) {}

const char* LogAuditIndication::getIndicationType() const {
    return "LogAuditIndication";
}

void LogAuditIndication::getFields(LogFieldsI& fields) const {
    LogIndication::getFields(fields);
    fields.text("operation", m_operation);
    fields.text("logData", m_logData);
}
