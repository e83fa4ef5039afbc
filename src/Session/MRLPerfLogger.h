#pragma once

#include "HBLCore/MRLExport.h"

class I18NString;
class MRLIPFLogger;

/// Measures the stretch of work that it is on the stack for. Costs nothing while its level is off, and in
/// this build, which has no performance log, it always is.
class MRL_EXPORT MRLPerfLogger {
public:
    MRLPerfLogger(const I18NString& classId, const I18NString& methodId, int level, const char* loggerName);
    ~MRLPerfLogger();
    MRLPerfLogger(const MRLPerfLogger&) = delete;
    MRLPerfLogger& operator=(const MRLPerfLogger&) = delete;

    int isEnabled() const { return 0; }
    void setIds(const MRLIPFLogger& logger);
};
