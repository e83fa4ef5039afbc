#pragma once

#include "logipf2/LogIndication.h"

#include <cstdint>

class HBLResourceCounterSet;

/// The begin or the end of a measured stretch of work, with the counters as they stand when it is logged.
class MRL_EXPORT LogPerfIndication : public LogIndication {
public:
    /// See LogIndication. Takes an execution id.
    /// @param counters borrowed, for as long as the indication lives; null leaves them out.
    LogPerfIndication(const I18NString& component, int version, const HBLResourceCounterSet* counters);

    void setClassId(const I18NString& id) { m_classId = id; }
    void setMethodId(const I18NString& id) { m_methodId = id; }
    void setStatus(const I18NString& status) { m_status = status; }
    void setSequenceId(const I18NString& id) { m_sequenceId = id; }
    void setLogData(const I18NString& data) { m_logData = data; }

    /// Takes a new execution id, for a further measurement. Begin and end of one have the same id, and no
    /// other measurement of the process has it.
    void setExecutionId();
    std::int64_t getExecutionId() const { return m_executionId; }

    const char* getIndicationType() const override;
    void getFields(LogFieldsI& fields) const override;

private:
    const HBLResourceCounterSet* m_counters; // borrowed
    std::int64_t m_executionId = 0;
    I18NString m_classId;
    I18NString m_methodId;
    I18NString m_status;
    I18NString m_sequenceId;
    I18NString m_logData;
};
