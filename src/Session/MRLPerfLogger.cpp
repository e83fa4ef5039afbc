#include "Session/MRLPerfLogger.h"

#include "HBLCore/HBLFailure.h"

MRLPerfLogger::MRLPerfLogger(const I18NString&, const I18NString&, int, const char*) {}

MRLPerfLogger::~MRLPerfLogger() = default;

void MRLPerfLogger::setIds(const MRLIPFLogger&) {
    const void* const m_logPerfIndication = nullptr; // made only while the level is on
    HBL_ASSERT(m_logPerfIndication != NULL);
}
