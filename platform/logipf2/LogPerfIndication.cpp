#include "logipf2/LogPerfIndication.h"

#include "HBLCore/HBLResourceCounterSet.h"
#include "logipf2/LogFieldsI.h"

#include <atomic>

namespace {

constinit std::atomic<std::int64_t> s_executions = 0;

} // namespace

LogPerfIndication::LogPerfIndication(const I18NString& component, int version,
                                     const HBLResourceCounterSet* counters)
    : LogIndication(component, version)
    , m_counters(counters) {
    setExecutionId();
}

void LogPerfIndication::setExecutionId() {
    m_executionId = s_executions.fetch_add(1, std::memory_order_relaxed) + 1;
}

const char* LogPerfIndication::getIndicationType() const {
    return "LogPerfIndication";
}

void LogPerfIndication::getFields(LogFieldsI& fields) const {
    LogIndication::getFields(fields);
    fields.text("classId", m_classId);
    fields.text("methodId", m_methodId);
    fields.text("status", m_status);
    fields.number("executionId", m_executionId);
    fields.text("sequenceId", m_sequenceId);
    fields.text("logData", m_logData);
    if (m_counters != nullptr) {
        const HBLResourceCounterSet::Readings& readings = m_counters->getReadings();
        fields.beginGroup("counters");
        fields.text("name", I18NString(m_counters->getName()));
        fields.number("elapsedMicroseconds", readings.elapsedMicroseconds);
        fields.number("processorMicroseconds", readings.processorMicroseconds);
        fields.number("stretches", readings.stretches);
        fields.endGroup();
    }
}
