#include "Session/MRLIPFLogger.h"

#include "I18NRes/MRLI18NRes.h"

#include "HBLCore/HBLFailure.h"
#include "logipf2/LogIPFControl.h"
#include "logipf2/LogTypedLogger.h"

#include <new>

namespace {

constexpr const char* SOURCE = "../Session/MRLIPFLogger";

/// A shared logger, looked up once for each context.
LogTypedLogger* found(std::atomic<LogTypedLogger*>& kept, MRLI18NRes::Index name, MRLI18NRes::Index type) {
    LogTypedLogger* logger = kept.load(std::memory_order_acquire);
    if (logger == nullptr) {
        logger = hblRethrowing(
            nullptr,
            [&] {
                return LogTypedLogger::getInstance(MRLI18NRes::getString(name), MRLI18NRes::getString(type));
            },
            HBLFileLocation(SOURCE, __LINE__));
        kept.store(logger, std::memory_order_release);
    }
    return logger;
}

} // namespace

void MRLIPFLogger::initialize() {
    LogIPFControl::start(0);
}

void MRLIPFLogger::terminate() {
    LogIPFControl::stop();
}

MRLIPFLogger* MRLIPFLogger::create(const MRLIPFLogger* source) {
    return hblRethrowing(
        nullptr, [&] { return source == nullptr ? new MRLIPFLogger() : new MRLIPFLogger(*source); },
        HBLFileLocation(SOURCE, __LINE__));
}

MRLIPFLogger::MRLIPFLogger(const MRLIPFLogger& other)
    : HBLReferenceCount(other) // counts anew
    , m_requestId(other.m_requestId)
    , m_subRequestId(other.m_subRequestId)
    , m_sessionId(other.m_sessionId)
    , m_objectPath(other.m_objectPath)
    , m_storeID(other.m_storeID)
    , m_modelName(other.m_modelName)
    , m_adHocPath(other.m_adHocPath)
    , m_operationType(other.m_operationType)
    , m_objectType(other.m_objectType)
    , m_serviceType(other.m_serviceType)
    , m_disabledLevels(other.m_disabledLevels)
    , m_rtUsageLoggerName(other.m_rtUsageLoggerName)
    , m_perfLoggerName(other.m_perfLoggerName)
    , m_traceLoggerName(other.m_traceLoggerName) {}

MRLIPFLogger::~MRLIPFLogger() = default;

LogTypedLogger* MRLIPFLogger::getAuditLogger() {
    return found(m_auditLogger, MRLI18NRes::eAuditRTUsageMRL, MRLI18NRes::eLogAuditIndication);
}

LogTypedLogger* MRLIPFLogger::getRequestAuditLogger() {
    return found(m_requestAuditLogger, MRLI18NRes::eAuditRTUsageMRLRequest, MRLI18NRes::eLogAuditIndication);
}

LogTypedLogger* MRLIPFLogger::getTraceLogger() {
    return found(m_traceLogger, MRLI18NRes::eTraceMRL, MRLI18NRes::eLogTraceIndication);
}

LogTypedLogger* MRLIPFLogger::getPerfLogger() {
    return found(m_perfLogger, MRLI18NRes::ePerfMRL, MRLI18NRes::eLogPerfIndication);
}

MRLIPFLogger::DisableFlag MRLIPFLogger::getFlagLevel(int level) {
    DisableFlag levelFlag = eDisableNone;
    switch (level) {
    case 10000: levelFlag = eDisable10000; break;
    case 20000: levelFlag = eDisable20000; break;
    case 30000: levelFlag = eDisable30000; break;
    case 40000: levelFlag = eDisable40000; break;
    case 50000: levelFlag = eDisable50000; break;
    default: break;
    }
    HBL_ASSERT(levelFlag != eDisableNone);
    return levelFlag;
}

int MRLIPFLogger::isAuditEnabled(int level) {
    if ((getFlagLevel(level) & m_disabledLevels) != 0) {
        return 0;
    }
    return getAuditLogger()->isEnabled(level);
}

int MRLIPFLogger::isTraceEnabled(int level) {
    return getTraceLogger()->isEnabled(level);
}

int MRLIPFLogger::isPerfEnabled(int level) {
    return getPerfLogger()->isEnabled(level);
}

void MRLIPFLogger::disableLogging(int level, int disable) {
    const unsigned flags = getFlagLevel(level);
    if (disable != 0) {
        m_disabledLevels |= flags;
    } else {
        m_disabledLevels &= ~flags;
    }
}

void MRLIPFLogger::setModelName(const I18NString& name) {
    constexpr char16_t quote = u'\'';
    m_modelName = name;
    const std::size_t first = m_modelName.find(quote);
    if (first == I18NString::npos) {
        return;
    }
    const std::size_t second = m_modelName.find(quote, first + 1);
    if (second != I18NString::npos) {
        m_modelName = m_modelName.substr(first + 1, second - first - 1);
    }
}

void MRLIPFLogger::setAdHocPath(const I18NString& path) {
    m_adHocPath = path;
    const std::size_t bracket = m_adHocPath.find(u']');
    if (bracket == I18NString::npos) {
        return;
    }
    m_adHocPath.erase(bracket + 1);
    std::string objectType;
    getObjectType(objectType);
    m_adHocPath += MRLI18NRes::getString(objectType == "Query" ? MRLI18NRes::eAdHocReportQueryTool
                                                               : MRLI18NRes::eAdHocReport);
}

void MRLIPFLogger::setObjectType(const char* type) {
    HBL_ASSERT(type);
    m_objectType = type;
}

void MRLIPFLogger::getObjectType(std::string& out) const {
    out = m_objectType;
    if (m_serviceType != nullptr && *m_serviceType != '\0') {
        if (!out.empty()) {
            out += ' ';
        }
        out += m_serviceType;
    }
}

const char* MRLIPFLogger::getObjectTypeForLogging(MRLSchemaTypeI::ObjectType type) {
    switch (type) {
    case MRLSchemaTypeI::eMRLReportView: return "ReportView";
    case MRLSchemaTypeI::eMRLReport:
    case MRLSchemaTypeI::eMRLReportTemplate:
    case MRLSchemaTypeI::eMRLReportServiceReportSpecification: return "Report";
    case MRLSchemaTypeI::eMRLAnalysis:
    case MRLSchemaTypeI::eMRLReportServiceAnalysisSpecification: return "Analysis";
    case MRLSchemaTypeI::eMRLQuery:
    case MRLSchemaTypeI::eMRLReportServiceQuerySpecification: return "Query";
    case MRLSchemaTypeI::eMRLQuadrixReport: return "QuadrixReport";
    case MRLSchemaTypeI::eMRLQueryFrameworkSpecification: return "QueryFramework";
    case MRLSchemaTypeI::eMRLReportServiceMetadataSpecification: return "MetaData";
    default: break;
    }
    HBL_ASSERT_NAMED(FALSE, "MRLIPFLogger::getObjectTypeForLogging - Unknown objectType for logging");
}

void MRLIPFLogger::setParameter(const I18NString& name, const I18NString& value, I18NString& out) {
    out += MRLI18NRes::getString(MRLI18NRes::eItemOpen);
    out += name;
    out += MRLI18NRes::getString(MRLI18NRes::eItemCdata);
    out += value;
    out += MRLI18NRes::getString(MRLI18NRes::eItemClose);
}
