#include "Session/MRLRTUsageLogger.h"

#include "I18NRes/MRLI18NRes.h"
#include "Session/MRLIPFLogger.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLThreadGuard.h"
#include "logipf2/LogAuditIndication.h"
#include "logipf2/LogTypedLogger.h"

constinit std::atomic<LogTypedLogger*> MRLRTUsageLogger::m_auditRTUsage = nullptr;
constinit std::atomic<const char*> MRLRTUsageLogger::m_loggerName = nullptr;
constinit HBLThreadCriticalSection MRLRTUsageLogger::m_theGuard;

namespace {

constexpr int USAGE_LEVEL = 10000;
constexpr int RECORD_VERSION = 7;

} // namespace

MRLRTUsageLogger::MRLRTUsageLogger(const char* className, const char* functionName) {
    HBL_ASSERT(className);
    HBL_ASSERT(functionName);
    m_functionName = className;
    m_functionName += "::";
    m_functionName += functionName;
}

MRLRTUsageLogger::~MRLRTUsageLogger() {
    if (m_started == 0) {
        return;
    }
    try {
        logEnd();
    } catch (...) { // the call is over, whatever becomes of its record
    }
}

LogTypedLogger* MRLRTUsageLogger::getLogger() {
    if (LogTypedLogger* const logger = m_auditRTUsage.load(std::memory_order_acquire)) {
        return logger;
    }
    const char* const name = m_loggerName.load(std::memory_order_acquire);
    if (name == nullptr) {
        return nullptr;
    }
    const HBLThreadGuard guard(m_theGuard);
    if (m_auditRTUsage.load(std::memory_order_relaxed) == nullptr) {
        const auto make = [&] {
            return LogTypedLogger::getInstance(name, MRLI18NRes::getString(MRLI18NRes::eLogAuditIndication));
        };
        m_auditRTUsage.store(hblRethrowing(nullptr, make), std::memory_order_release);
    }
    return m_auditRTUsage.load(std::memory_order_relaxed);
}

int MRLRTUsageLogger::isEnabled() const {
    const LogTypedLogger* const logger = getLogger();
    return logger == nullptr ? 0 : logger->isEnabled(USAGE_LEVEL);
}

void MRLRTUsageLogger::setIds(const MRLIPFLogger& logger) {
    m_sessionId = logger.getSessionId();
    m_requestId = logger.getRequestId();
    m_subRequestId = logger.getSubRequestId();
}

void MRLRTUsageLogger::addParameter(const I18NString& name, const I18NString& value) {
    MRLIPFLogger::setParameter(name, value, m_parameters);
}

void MRLRTUsageLogger::logStart() {
    if (isEnabled() != 0) {
        log("CallStart");
        m_started = 1;
    }
}

void MRLRTUsageLogger::logEnd() {
    if (m_started != 0 && isEnabled() != 0) {
        log("CallEnd");
        m_started = 0;
    }
}

void MRLRTUsageLogger::log(const char* operation) const {
    LogAuditIndication indication(MRLI18NRes::getString(MRLI18NRes::eMRL), RECORD_VERSION);
    indication.setLevel(USAGE_LEVEL);
    indication.setSessionID(m_sessionId);
    indication.setRequestID(m_requestId);
    indication.setSubRequestID(m_subRequestId);
    indication.setOperation(operation);
    I18NString data;
    buildLogData(data);
    indication.setLogData(data);
    hblRethrowing(nullptr, [&] { getLogger()->log(&indication); });
}

void MRLRTUsageLogger::buildLogData(I18NString& out) const {
    out = "<function name=\"";
    out += m_functionName;
    out += "\">";
    out += "</function>";
}
