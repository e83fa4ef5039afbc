#include "logipf2/LogIndication.h"

#include "logipf2/LogFieldsI.h"

LogIndication::LogIndication(const I18NString& component, int version)
    : m_component(component)
    , m_version(version) {}

void LogIndication::getFields(LogFieldsI& fields) const {
    fields.text("component", m_component);
    fields.number("version", m_version);
    fields.text("sessionID", m_sessionID);
    fields.text("requestID", m_requestID);
    fields.text("subRequestID", m_subRequestID);
    fields.text("stepID", m_stepID);
}
