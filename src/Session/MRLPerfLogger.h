#pragma once

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/MRLExport.h"

#include <atomic>
#include <memory>

class HBLResourceCounterSet;
class I18NString;
class LogPerfIndication;
class LogTypedLogger;
class MRLIPFLogger;

/// Measures the stretch of work that it is on the stack for: a record when it begins, and one with the time
/// it took when it ends. While its level is off it costs a few nanoseconds and allocates nothing. One thread.
class MRL_EXPORT MRLPerfLogger {
public:
    /// The logger, when it is not named.
    enum eSubComp {
        ePerfMRL = 0,     ///< "Perf.MRL"
        ePerfGeneral = 1, ///< "Perf.RENQ.GENERAL"; shares a logger with ePerfMRL: the first one used names it
        ePerfPrompting = 2, ///< "Perf.RENQ.Prompting"
        ePerfRendering = 3, ///< "Perf.RENQ.Rendering"
        ePerfRetrieval = 4, ///< "Perf.RENQ.Retrieval"
        ePerfCM = 5,        ///< "Perf.RENQ.CM"
    };
    /// The words for begin and end.
    enum ePerfLogType {
        ePerfEnterExit = 0,   ///< "ENTER" and "EXIT", as for every other value
        ePerfCallReturn = 1,  ///< "CALL" and "RETURN"
        ePerfStartFinish = 2, ///< "START" and "FINISH"
    };

    /// Writes the begin record when the level is enabled, then starts the counters.
    /// @param loggerName null for that of `subComp`. The first name given in a process is used for all.
    /// @param counterSetName a name for the counters, null for none.
    /// @throws HBLAssertError for an unknown `subComp`.
    MRLPerfLogger(const I18NString& classId, const I18NString& methodId, int level, const char* loggerName,
                  eSubComp subComp = ePerfMRL, ePerfLogType type = ePerfEnterExit,
                  const char* counterSetName = nullptr);
    /// Ends the measurement; a failure of that is dropped.
    ~MRLPerfLogger();
    MRLPerfLogger(const MRLPerfLogger&) = delete;
    MRLPerfLogger& operator=(const MRLPerfLogger&) = delete;

    /// Stops the counters and writes the end record; without effect while nothing is measured.
    void stopAndLog();
    /// Begins a further measurement, with an execution id of its own; without effect while one goes on. The
    /// counters go on from what they have.
    void restartAndLog(const I18NString& sequenceId, ePerfLogType type);

    /// Whether the level was enabled when this was made.
    int isEnabled() const { return m_logPerfIndication == nullptr ? 0 : 1; }
    /// Whether the logger has `level` enabled now.
    int isEnabled(int level) const;
    /// The level of the records; 50000 while none are written.
    int getLevel() const;

    /// For the records to come. These four assert that isEnabled().
    void setIds(const MRLIPFLogger& logger);
    void setStepId(const I18NString& id);
    void setSequenceId(const I18NString& id);
    /// Is written inside a <LogDataItems> element.
    void setLogData(const I18NString& data);

    /// The same for what is not null, and without effect unless isEnabled().
    void setPerfIds(MRLIPFLogger* logger, const I18NString* logData, const I18NString* sequenceId);

private:
    static LogTypedLogger* choose(const char* loggerName, eSubComp subComp);
    static LogTypedLogger* find(std::atomic<LogTypedLogger*>& kept, const char* loggerName);
    void begin(const I18NString& classId, const I18NString& methodId, int level, const char* counterSetName);
    bool isMeasuring() const;

    // Shared, never ended, found on first use.
    static std::atomic<LogTypedLogger*> m_perfGeneral;
    static std::atomic<LogTypedLogger*> m_perfPrompting;
    static std::atomic<LogTypedLogger*> m_perfRendering;
    static std::atomic<LogTypedLogger*> m_perfRetrieval;
    static std::atomic<LogTypedLogger*> m_perfCM;
    static std::atomic<LogTypedLogger*> m_perfNamed;
    static HBLThreadCriticalSection m_theGuard;

    LogTypedLogger* m_logger;                               // borrowed
    std::unique_ptr<LogPerfIndication> m_logPerfIndication; // null while the level is off
    ePerfLogType m_type;
    std::unique_ptr<HBLResourceCounterSet> m_counters; // null while the level is off; the indication reads it
    [[maybe_unused]] const char* m_loggerName;         // borrowed, may be null
};
