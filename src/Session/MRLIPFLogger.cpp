#include "Session/MRLIPFLogger.h"

#include "HBLCore/HBLFailure.h"

#include <new>

void MRLIPFLogger::initialize() {}

void MRLIPFLogger::terminate() {}

MRLIPFLogger* MRLIPFLogger::create(const MRLIPFLogger* source) {
    return hblRethrowing(
        nullptr, [&] { return source == nullptr ? new MRLIPFLogger() : new MRLIPFLogger(*source); },
        HBLFileLocation("../Session/MRLIPFLogger", __LINE__));
}

MRLIPFLogger::MRLIPFLogger(const MRLIPFLogger& other)
    : HBLReferenceCount(other) // counts anew
    , m_requestId(other.m_requestId)
    , m_subRequestId(other.m_subRequestId)
    , m_sessionId(other.m_sessionId)
    , m_rtUsageLoggerName(other.m_rtUsageLoggerName)
    , m_perfLoggerName(other.m_perfLoggerName) {}

MRLIPFLogger::~MRLIPFLogger() = default;

int MRLIPFLogger::isAuditEnabled(int) {
    return 0;
}

void MRLIPFLogger::audit(int, const char*, const char*, I18NString*, I18NString*) {}
