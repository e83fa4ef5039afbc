#pragma once

#include "HBLCore/MRLExport.h"

#include <atomic>
#include <string>

class MRLIPFLogger;

/// Records that a function of a service began and ended, while the usage log is on; this build has none.
class MRL_EXPORT MRLRTUsageLogger {
public:
    /// Neither name may be null.
    MRLRTUsageLogger(const char* className, const char* functionName);
    ~MRLRTUsageLogger();
    MRLRTUsageLogger(const MRLRTUsageLogger&) = delete;
    MRLRTUsageLogger& operator=(const MRLRTUsageLogger&) = delete;

    int isEnabled() const { return 0; }
    /// The name of the shared log; the caller keeps the text alive.
    void setLoggerName(const char* name) { s_loggerName = name; }
    void setIds(const MRLIPFLogger& logger);
    void logStart();
    void logEnd();

private:
    static std::atomic<const char*> s_loggerName;

    std::string m_functionName;
};
