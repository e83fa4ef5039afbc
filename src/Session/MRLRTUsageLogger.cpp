#include "Session/MRLRTUsageLogger.h"

#include "HBLCore/HBLFailure.h"

std::atomic<const char*> MRLRTUsageLogger::s_loggerName = nullptr;

MRLRTUsageLogger::MRLRTUsageLogger(const char* className, const char* functionName) {
    HBL_ASSERT(className);
    HBL_ASSERT(functionName);
    m_functionName = std::string(className) + "::" + functionName;
}

MRLRTUsageLogger::~MRLRTUsageLogger() = default;

void MRLRTUsageLogger::setIds(const MRLIPFLogger&) {}

void MRLRTUsageLogger::logStart() {}

void MRLRTUsageLogger::logEnd() {}
