// The audit records of MRLIPFLogger.
#include "I18NRes/MRLI18NRes.h"
#include "Session/MRLIPFLogger.h"
#include "Session/detail/PasswordMask.h"

#include "HBLCore/HBLFailure.h"
#include "logipf2/LogAuditAccessIndication.h"
#include "logipf2/LogTypedLogger.h"

#include <string_view>

namespace {

constexpr int RECORD_VERSION = 7;

void write(const LogTypedLogger& logger, const LogAuditIndication& indication) {
    hblRethrowing(
        nullptr, [&] { logger.log(&indication); }, HBLFileLocation("../Session/MRLIPFLogger", __LINE__));
}

bool isText(const char* text, std::string_view wanted) {
    return text != nullptr && wanted == text;
}

I18NString wrapped(MRLI18NRes::Index open, const I18NString& text, MRLI18NRes::Index close) {
    I18NString result = MRLI18NRes::getString(open);
    result += text;
    result += MRLI18NRes::getString(close);
    return result;
}

I18NString parametersBlock(const char* name, const I18NString& value) {
    I18NString item;
    MRLIPFLogger::setParameter(name, value, item);
    return wrapped(MRLI18NRes::eParametersOpen, item, MRLI18NRes::eParametersClose);
}

} // namespace

void MRLIPFLogger::audit(int level, const char* status, I18NString* data, I18NString* error) {
    if (!m_operationType.empty()) {
        audit(level, m_operationType.c_str(), status, data, error);
    }
}

void MRLIPFLogger::audit(int level, const char* operation, const char* status, I18NString* data,
                         I18NString* error) {
    if (data != nullptr && isText(operation, "Request")) {
        mrl::detail::maskPassword(*data);
    }
    const I18NString none;
    const I18NString& recordData = data == nullptr ? none : *data;
    switch (level) {
    case 10000: return auditTraffic(level, operation, recordData, error);
    case 20000:
    case 30000:
    case 40000:
    case 50000: return auditAccess(level, operation, status, recordData, error);
    default: return; // no such level: nothing is logged
    }
}

void MRLIPFLogger::setIds(LogAuditIndication& indication) const {
    indication.setSessionID(m_sessionId);
    indication.setRequestID(m_requestId);
    indication.setSubRequestID(m_subRequestId);
}

void MRLIPFLogger::auditTraffic(int level, const char* operation, const I18NString& recordData,
                                I18NString* error) {
    LogAuditIndication indication(MRLI18NRes::getString(MRLI18NRes::eMRL), RECORD_VERSION);
    indication.setLevel(level);
    setIds(indication);
    indication.setOperation(operation);
    if (!recordData.empty()) {
        if (error != nullptr) {
            *error += MRLI18NRes::getString(MRLI18NRes::eBlank);
            *error += recordData;
        }
        indication.setLogData(error != nullptr ? *error : recordData);
    }
    write(*getAuditLogger(), indication);
}

void MRLIPFLogger::auditAccess(int level, const char* operation, const char* status,
                               const I18NString& recordData, const I18NString* error) {
    LogAuditAccessIndication indication(MRLI18NRes::getString(MRLI18NRes::eMRL), RECORD_VERSION);
    indication.setLevel(level);
    setIds(indication);
    indication.setOperation(operation);
    std::string objectType;
    getObjectType(objectType);
    indication.setObjectType(objectType.c_str());
    indication.setObjectPath(m_objectPath.empty() ? m_adHocPath : m_objectPath);
    indication.setStatus(status);
    if (level == 30000) {
        I18NString parameters = parametersBlock("model", m_modelName);
        if (!m_storeID.empty()) {
            parameters += parametersBlock("storeID", m_storeID);
        }
        indication.setLogData(parameters);
    } else if (!recordData.empty()) {
        indication.setLogData(operation != nullptr
                                  ? recordData
                                  : wrapped(MRLI18NRes::eTraceOpen, recordData, MRLI18NRes::eTraceClose));
    }
    if (error != nullptr) {
        indication.setErrorMessage(!m_errorMessage.empty() && isText(status, "Failure") ? m_errorMessage
                                                                                        : *error);
    }
    write(*getAuditLogger(), indication);
}
