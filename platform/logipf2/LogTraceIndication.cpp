#include "logipf2/LogTraceIndication.h"

#include "logipf2/LogFieldsI.h"

LogTraceIndication::LogTraceIndication(const I18NString& component, int version)
    : LogIndication(component, version) {}

const char* LogTraceIndication::getIndicationType() const {
    return "LogTraceIndication";
}

void LogTraceIndication::getFields(LogFieldsI& fields) const {
    LogIndication::getFields(fields);
    fields.text("classId", m_classId);
    fields.text("methodId", m_methodId);
    fields.text("logData", m_logData);
}
