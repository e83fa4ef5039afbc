#include "Session/MRLPerfLogger.h"

#include "I18NRes/MRLI18NRes.h"
#include "Session/MRLIPFLogger.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLResourceCounterSet.h"
#include "HBLCore/HBLThreadGuard.h"
#include "logipf2/LogPerfIndication.h"
#include "logipf2/LogTypedLogger.h"

constinit std::atomic<LogTypedLogger*> MRLPerfLogger::m_perfGeneral = nullptr;
constinit std::atomic<LogTypedLogger*> MRLPerfLogger::m_perfPrompting = nullptr;
constinit std::atomic<LogTypedLogger*> MRLPerfLogger::m_perfRendering = nullptr;
constinit std::atomic<LogTypedLogger*> MRLPerfLogger::m_perfRetrieval = nullptr;
constinit std::atomic<LogTypedLogger*> MRLPerfLogger::m_perfCM = nullptr;
constinit std::atomic<LogTypedLogger*> MRLPerfLogger::m_perfNamed = nullptr;
constinit HBLThreadCriticalSection MRLPerfLogger::m_theGuard;

namespace {

constexpr const char* SOURCE = "../Session/MRLPerfLogger";
constexpr int RECORD_VERSION = 7;
constexpr int NO_RECORDS_LEVEL = 50000;

const char* beginStatus(MRLPerfLogger::ePerfLogType type) {
    switch (type) {
    case MRLPerfLogger::ePerfCallReturn: return "CALL";
    case MRLPerfLogger::ePerfStartFinish: return "START";
    default: return "ENTER";
    }
}

const char* endStatus(MRLPerfLogger::ePerfLogType type) {
    switch (type) {
    case MRLPerfLogger::ePerfCallReturn: return "RETURN";
    case MRLPerfLogger::ePerfStartFinish: return "FINISH";
    default: return "EXIT";
    }
}

} // namespace

LogTypedLogger* MRLPerfLogger::find(std::atomic<LogTypedLogger*>& kept, const char* loggerName) {
    if (LogTypedLogger* const logger = kept.load(std::memory_order_acquire)) {
        return logger;
    }
    const HBLThreadGuard guard(m_theGuard);
    if (kept.load(std::memory_order_relaxed) == nullptr) {
        const auto make = [&] {
            return LogTypedLogger::getInstance(loggerName,
                                               MRLI18NRes::getString(MRLI18NRes::eLogPerfIndication));
        };
        kept.store(hblRethrowing(nullptr, make, HBLFileLocation(SOURCE, __LINE__)),
                   std::memory_order_release);
    }
    return kept.load(std::memory_order_relaxed);
}

LogTypedLogger* MRLPerfLogger::choose(const char* loggerName, eSubComp subComp) {
    if (loggerName != nullptr) {
        return find(m_perfNamed, loggerName);
    }
    switch (subComp) {
    case ePerfMRL: return find(m_perfGeneral, "Perf.MRL");
    case ePerfGeneral: return find(m_perfGeneral, "Perf.RENQ.GENERAL");
    case ePerfPrompting: return find(m_perfPrompting, "Perf.RENQ.Prompting");
    case ePerfRendering: return find(m_perfRendering, "Perf.RENQ.Rendering");
    case ePerfRetrieval: return find(m_perfRetrieval, "Perf.RENQ.Retrieval");
    case ePerfCM: return find(m_perfCM, "Perf.RENQ.CM");
    }
    HBL_ASSERT_NAMED(FALSE, "[MRLPerfLogger::MRLPerfLogger] unknown eSubComp specified.");
}

MRLPerfLogger::MRLPerfLogger(const I18NString& classId, const I18NString& methodId, int level,
                             const char* loggerName, eSubComp subComp, ePerfLogType type,
                             const char* counterSetName)
    : m_logger(choose(loggerName, subComp))
    , m_type(type)
    , m_loggerName(loggerName) {
    HBL_ASSERT(m_logger != NULL);
    if (m_logger->isEnabled(level) != 0) {
        begin(classId, methodId, level, counterSetName);
    }
}

void MRLPerfLogger::begin(const I18NString& classId, const I18NString& methodId, int level,
                          const char* counterSetName) {
    m_counters.reset(
        hblNew<HBLResourceCounterSet>(HBLFileLocation(SOURCE, __LINE__), counterSetName, nullptr));
    m_logPerfIndication.reset(hblNew<LogPerfIndication>(HBLFileLocation(SOURCE, __LINE__),
                                                        MRLI18NRes::getString(MRLI18NRes::eMRL),
                                                        RECORD_VERSION, m_counters.get()));
    m_logPerfIndication->setLevel(level);
    m_logPerfIndication->setClassId(classId);
    m_logPerfIndication->setMethodId(methodId);
    m_logPerfIndication->setStatus(beginStatus(m_type));
    m_logger->log(m_logPerfIndication.get());
    m_counters->enableResourceCounter(); // behind the record, whose cost is not the work's
}

MRLPerfLogger::~MRLPerfLogger() {
    if (m_logPerfIndication == nullptr) {
        return;
    }
    try {
        stopAndLog();
    } catch (...) { // the work is done, whatever becomes of its record
    }
}

bool MRLPerfLogger::isMeasuring() const {
    return m_counters->isResourceCounterActive();
}

void MRLPerfLogger::stopAndLog() {
    if (m_logPerfIndication == nullptr || m_counters == nullptr || !isMeasuring()) {
        return;
    }
    m_counters->disableResourceCounter();
    m_logPerfIndication->setStatus(endStatus(m_type));
    m_logger->log(m_logPerfIndication.get());
}

void MRLPerfLogger::restartAndLog(const I18NString& sequenceId, ePerfLogType type) {
    if (m_logPerfIndication == nullptr || m_counters == nullptr || isMeasuring()) {
        return;
    }
    m_type = type;
    m_logPerfIndication->setSequenceId(sequenceId);
    m_logPerfIndication->setExecutionId();
    m_logPerfIndication->setStatus(beginStatus(m_type));
    m_counters->enableResourceCounter();
    m_logger->log(m_logPerfIndication.get());
}

int MRLPerfLogger::isEnabled(int level) const {
    return m_logger == nullptr ? 0 : m_logger->isEnabled(level);
}

int MRLPerfLogger::getLevel() const {
    return m_logPerfIndication == nullptr ? NO_RECORDS_LEVEL : m_logPerfIndication->getLevel();
}

void MRLPerfLogger::setIds(const MRLIPFLogger& logger) {
    HBL_ASSERT(m_logPerfIndication != NULL);
    m_logPerfIndication->setSessionID(logger.getSessionId());
    m_logPerfIndication->setRequestID(logger.getRequestId());
    m_logPerfIndication->setSubRequestID(logger.getSubRequestId());
}

void MRLPerfLogger::setStepId(const I18NString& id) {
    HBL_ASSERT(m_logPerfIndication != NULL);
    m_logPerfIndication->setStepID(id);
}

void MRLPerfLogger::setSequenceId(const I18NString& id) {
    HBL_ASSERT(m_logPerfIndication != NULL);
    m_logPerfIndication->setSequenceId(id);
}

void MRLPerfLogger::setLogData(const I18NString& data) {
    HBL_ASSERT(m_logPerfIndication != NULL);
    I18NString items = "<LogDataItems>";
    items += data;
    items += "</LogDataItems>";
    m_logPerfIndication->setLogData(items);
}

void MRLPerfLogger::setPerfIds(MRLIPFLogger* logger, const I18NString* logData,
                               const I18NString* sequenceId) {
    if (m_logPerfIndication == nullptr) {
        return;
    }
    if (logger != nullptr) {
        setIds(*logger);
    }
    if (sequenceId != nullptr) {
        setSequenceId(*sequenceId);
    }
    if (logData != nullptr) {
        setLogData(*logData);
    }
}
