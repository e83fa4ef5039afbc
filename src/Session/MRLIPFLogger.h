#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/HBLReferenceCount.h"
#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

#include <atomic>
#include <string>

class LogAuditIndication;
class LogTypedLogger;

/// The audit context of one session or request: its ids, the object it works on, and the way into the log.
/// docs/logging.md tells how the log is switched on and what its records look like.
///
/// One thread at a time; the questions whether a level is enabled may come from any. The loggers behind it
/// are shared by the process and safe.
class MRL_EXPORT MRLIPFLogger : public HBLReferenceCount {
public:
    /// Starts the logging of the process (LogIPFControl::start): before it no level is enabled. Further calls
    /// change nothing.
    static void initialize();
    /// Ends it for the whole process, with everything written that was held back.
    static void terminate();

    /// A new context: empty, or with the settings of `source` but for its error message. The caller owns it.
    static MRLIPFLogger* create(const MRLIPFLogger* source);
    ~MRLIPFLogger() override;

    /// The word for a kind of object that audit records use, a literal.
    /// @throws HBLAssertError for a type that has none.
    static const char* getObjectTypeForLogging(MRLSchemaTypeI::ObjectType type);
    /// Appends a named value to `out`, as an <item> element. Nothing is escaped: the value must not hold the
    /// end of a CDATA section.
    static void setParameter(const I18NString& name, const I18NString& value, I18NString& out);

    /// Whether records of `level` (10000, 20000, 30000, 40000 or 50000) are written: enabled by the
    /// configuration, and not disabled here. A few nanoseconds.
    /// @throws HBLAssertError for another level.
    int isAuditEnabled(int level);
    /// The same for trace and performance records; what is disabled here does not count.
    int isTraceEnabled(int level);
    int isPerfEnabled(int level);
    /// Disables a level for this context alone, or enables it again for `disable` 0. With level 10000 all
    /// others go, and 10000 goes with any other.
    void disableLogging(int level, int disable);

    /// Writes one audit record. Callers ask isAuditEnabled() first; what is disabled here is not asked again.
    /// In the data of a "Request" the first password is masked.
    /// @param operation null wraps the data in a <trace> element.
    /// @param data the text of the record; may be null, and is changed where a password is masked.
    /// @param error of level 10000: its text comes before the data, and gets the data appended. Of the other
    /// levels: the record's error message, unless setErrorMessage() gave one for a "Failure". May be null.
    void audit(int level, const char* operation, const char* status, I18NString* data, I18NString* error);
    /// The same with the operation type as the operation; without one nothing is written.
    void audit(int level, const char* status, I18NString* data, I18NString* error);

    /// A null text clears an id.
    void setRequestId(const char* id) { m_requestId = orEmpty(id); }
    const char* getRequestId() const { return m_requestId.c_str(); }
    void setSubRequestId(const char* id) { m_subRequestId = orEmpty(id); }
    const char* getSubRequestId() const { return m_subRequestId.c_str(); }
    void setSessionId(const char* id) { m_sessionId = orEmpty(id); }
    const char* getSessionId() const { return m_sessionId.c_str(); }

    void setObjectPath(const I18NString& path) { m_objectPath = path; }
    const I18NString& getObjectPath() const { return m_objectPath; }
    void setStoreID(const I18NString& id) { m_storeID = id; }
    const I18NString& getStoreID() const { return m_storeID; }
    /// Of a search path with the package's name in single quotes, only that name is kept.
    void setModelName(const I18NString& name);
    const I18NString& getModelName() const { return m_modelName; }
    /// Stands in for an empty object path. The path is cut behind its first "]", and what kind of object was
    /// made up there is appended; so the object type has to be set first.
    void setAdHocPath(const I18NString& path);
    const I18NString& getAdHocPath() const { return m_adHocPath; }
    /// The error message of every "Failure" to come, in place of the caller's.
    void setErrorMessage(const I18NString& message) { m_errorMessage = message; }

    /// A null text clears the type.
    void setOperationType(const char* type) { m_operationType = orEmpty(type); }
    const char* getOperationType() const { return m_operationType.c_str(); }
    /// @throws HBLAssertError for null.
    void setObjectType(const char* type);
    const char* getObjectType() const { return m_objectType.c_str(); }
    /// Object type and service type, with a blank between them.
    void getObjectType(std::string& out) const;

    /// The caller keeps these texts alive.
    void setServiceType(const char* type) { m_serviceType = type; }
    const char* getServiceType() const { return m_serviceType; }
    void setRTUsageLoggerName(const char* name) { m_rtUsageLoggerName = name; }
    const char* getRTUsageLoggerName() const { return m_rtUsageLoggerName; }
    void setPerfLoggerName(const char* name) { m_perfLoggerName = name; }
    const char* getPerfLoggerName() const { return m_perfLoggerName; }
    void setTraceLoggerName(const char* name) { m_traceLoggerName = name; }
    const char* getTraceLoggerName() const { return m_traceLoggerName; }

    /// The shared loggers "Audit.RTUsage.MRL", "Audit.RTUsage.MRL.Request", "Trace.MRL" and "Perf.MRL"; never
    /// null, not to be deleted.
    LogTypedLogger* getAuditLogger();
    LogTypedLogger* getRequestAuditLogger();
    LogTypedLogger* getTraceLogger();
    LogTypedLogger* getPerfLogger();

private:
    enum DisableFlag : unsigned {
        eDisableNone = 0,
        eDisable50000 = 1,
        eDisable40000 = 2,
        eDisable30000 = 4,
        eDisable20000 = 8,
        eDisable10000 = eDisable20000 | eDisable30000 | eDisable40000 | eDisable50000,
    };

    MRLIPFLogger() = default;
    MRLIPFLogger(const MRLIPFLogger& other);

    static const char* orEmpty(const char* text) { return text == nullptr ? "" : text; }
    static DisableFlag getFlagLevel(int level);
    void auditAccess(int level, const char* operation, const char* status, const I18NString& recordData,
                     const I18NString* error);
    void auditTraffic(int level, const char* operation, const I18NString& recordData, I18NString* error);
    void setIds(LogAuditIndication& indication) const;

    std::string m_requestId;
    std::string m_subRequestId;
    std::string m_sessionId;
    I18NString m_objectPath;
    I18NString m_storeID;
    I18NString m_modelName;
    I18NString m_adHocPath;
    I18NString m_errorMessage;
    // Shared, never ended; found on first use, by any thread that asks for a level.
    std::atomic<LogTypedLogger*> m_auditLogger = nullptr;
    std::atomic<LogTypedLogger*> m_requestAuditLogger = nullptr;
    std::atomic<LogTypedLogger*> m_traceLogger = nullptr;
    std::atomic<LogTypedLogger*> m_perfLogger = nullptr;
    std::string m_operationType;
    std::string m_objectType;
    const char* m_serviceType = nullptr; // borrowed
    unsigned m_disabledLevels = eDisableNone;
    const char* m_rtUsageLoggerName = nullptr; // borrowed
    const char* m_perfLoggerName = nullptr;    // borrowed
    const char* m_traceLoggerName = nullptr;   // borrowed
};
