#pragma once

#include "logipf2/LogIndication.h"

/// A record for those who look for a fault: where in the program it was written, and a text.
class MRL_EXPORT LogTraceIndication : public LogIndication {
public:
    /// See LogIndication.
    LogTraceIndication(const I18NString& component, int version);

    void setClassId(const I18NString& id) { m_classId = id; }
    void setMethodId(const I18NString& id) { m_methodId = id; }
    void setLogData(const I18NString& data) { m_logData = data; }

    const char* getIndicationType() const override;
    void getFields(LogFieldsI& fields) const override;

private:
    I18NString m_classId;
    I18NString m_methodId;
    I18NString m_logData;
};
