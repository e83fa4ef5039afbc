#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

#include <atomic>

class LogTypedLogger;
class MRLIPFLogger;

/// Records that a function of a service began and ended, for the accounting of usage: records of level 10000
/// on one logger that all objects share. One thread.
class MRL_EXPORT MRLRTUsageLogger {
public:
    /// Neither name may be null.
    MRLRTUsageLogger(const char* className, const char* functionName);
    /// Ends what has started; a failure of that is dropped.
    ~MRLRTUsageLogger();
    MRLRTUsageLogger(const MRLRTUsageLogger&) = delete;
    MRLRTUsageLogger& operator=(const MRLRTUsageLogger&) = delete;

    int isEnabled() const;
    /// The name of the shared logger, which is made when it is first asked for; from then on this has no
    /// effect. The caller keeps the text alive. Without a name nothing is recorded.
    void setLoggerName(const char* name) { m_loggerName.store(name, std::memory_order_release); }
    void setIds(const MRLIPFLogger& logger);
    /// Gathers a parameter; no record carries it.
    void addParameter(const I18NString& name, const I18NString& value);
    /// Writes the record "CallStart" when usage is recorded.
    void logStart();
    /// Writes the record "CallEnd" when usage is recorded and a start was.
    void logEnd();

private:
    static LogTypedLogger* getLogger();
    void buildLogData(I18NString& out) const;
    void log(const char* operation) const;

    static std::atomic<LogTypedLogger*> m_auditRTUsage; // shared, never ended
    static std::atomic<const char*> m_loggerName;       // borrowed
    static HBLThreadCriticalSection m_theGuard;

    I18NString m_requestId;
    I18NString m_subRequestId;
    I18NString m_sessionId;
    I18NString m_functionName;
    I18NString m_parameters;
    int m_started = 0;
};
