#pragma once

#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/MRLExport.h"

#include <string>

class I18NString;

/// The audit context of one session or request: its ids, and the log it writes to. One thread at a time.
///
/// This build has no log behind it: no level is enabled, and `audit` writes nowhere.
class MRL_EXPORT MRLIPFLogger : public HBLReferenceCount {
public:
    static void initialize();
    static void terminate();

    /// A new context, empty or a copy of `source`. The caller owns it.
    static MRLIPFLogger* create(const MRLIPFLogger* source);

    ~MRLIPFLogger() override;

    /// @return not 0 when records of `level` (10000, 20000, 30000, 40000 or 50000) are written.
    int isAuditEnabled(int level);

    /// Writes one record. Callers ask `isAuditEnabled` first.
    void audit(int level, const char* operation, const char* status, I18NString* data, I18NString* error);

    void setRequestId(const char* id) { m_requestId = id == nullptr ? "" : id; }
    const char* getRequestId() const { return m_requestId.c_str(); }
    void setSubRequestId(const char* id) { m_subRequestId = id == nullptr ? "" : id; }
    const char* getSubRequestId() const { return m_subRequestId.c_str(); }
    void setSessionId(const char* id) { m_sessionId = id == nullptr ? "" : id; }
    const char* getSessionId() const { return m_sessionId.c_str(); }

    /// The names are not copied: the caller keeps the texts alive.
    void setRTUsageLoggerName(const char* name) { m_rtUsageLoggerName = name; }
    const char* getRTUsageLoggerName() const { return m_rtUsageLoggerName; }
    void setPerfLoggerName(const char* name) { m_perfLoggerName = name; }
    const char* getPerfLoggerName() const { return m_perfLoggerName; }

private:
    MRLIPFLogger() = default;
    MRLIPFLogger(const MRLIPFLogger& other);

    std::string m_requestId;
    std::string m_subRequestId;
    std::string m_sessionId;
    const char* m_rtUsageLoggerName = nullptr; // borrowed
    const char* m_perfLoggerName = nullptr;    // borrowed
};
