#pragma once

#include "HBLCore/HBLResetableResource.h"
#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

/// The fixed texts of the toolkit, addressed by a small index. Any thread may look up.
class MRL_EXPORT MRLI18NRes : public HBLResetableResource {
public:
    /// The index of each text.
    enum Index : unsigned int {
        eSoapEncodingNamespace = 0,
        eBusPrefix = 1,
        eXmlSchemaNamespace = 2,
        eXmlSchemaInstanceNamespace = 3,
        eSoapEncArray = 4,
        eSoapEncArrayType = 5,
        eXmlnsBus = 6,
        eXmlnsXsi = 7,
        eXmlnsSoapEnc = 8,
        eXmlnsXs = 9,
        eXsiType = 10,
        eXsiNil = 11,
        eFaultcode = 12,
        eFaultstring = 13,
        eFaultactor = 14,
        eDetail = 15,
        eException = 16,
        eItem = 17,
        eZorPassport = 18,
        eBusNamespace = 19,
        eTrue = 20,
        eFalse = 21,
        eEmpty = 22,
        eInteractive = 23,
        eUtf8 = 24,
        eName = 25,
        eTemp = 26,
        eEncryptTemporaryFiles = 27,
        eMRLmsgs = 28,
        eTavelNamespace = 29,
        eContentManager = 30,
        eInternalDispatcher = 31,
        eConfigNamespace = 32,
        ePassword = 33,
        eAAA = 34,
        eParameter = 35,
        eInactivityTimeout = 36,
        eValue = 37,
        eBlank = 38,
        eMRLSOAPSession = 39,
        eZORCredential = 40,
        eSuccess = 41,
        eFailure = 42,
        eWarning = 43,
        eResponseOpen = 44,
        eResponseClose = 45,
        eRequestOpen = 46,
        eRequestClose = 47,
        eParametersOpen = 48,
        eParametersClose = 49,
        eTraceOpen = 50,
        eTraceClose = 51,
        eItemOpen = 52,
        eItemCdata = 53,
        eItemClose = 54,
        ePrimaryRequestLogging = 55,
        eLogOperationType = 56,
        eLogObjectType = 57,
        eLogAuditIndication = 58,
        eLogTraceIndication = 59,
        eLogPerfIndication = 60,
        eAuditRTUsageMRL = 61,
        eAuditRTUsageMRLRequest = 62,
        eTraceMRL = 63,
        ePerfMRL = 64,
        eCmNoRead = 65,
        eCmNoWrite = 66,
        eCmNoPermission = 67,
        eCmPropertyNoPermission = 68,
        eSlash = 69,
        eContentManagers = 70,
        eXsdString = 71,
        eProperty = 72,
        eType = 73,
        eLong = 74,
        eExternalServicesRecordingMode = 75,
        eMRL = 76,
        eReportServerType = 77,
        eResolveConnection = 78,
        eReportDtd = 79,
        eAdHocReport = 80,
        eAdHocReportQueryTool = 81,
        eExternalDispatcher = 82,
        eSdk = 83
    };
    static constexpr unsigned int s_count = 84;

    /// The text as UTF-16, made at its first use and kept until reset(). The index is not tested.
    static const I18NString& getString(unsigned int key);

    /// The text itself, a constant. The index is not tested.
    static const char* getChar(unsigned int key);

    /// The pieces of an XPath as terminated UTF-16: "./", "/", "[", "]". The index is not tested.
    static const char16_t* getXPathPiece(unsigned int index);

    ~MRLI18NRes() override;

    /// Drops every kept string. No lookup may be under way, and references from before are invalid.
    void reset() override;

private:
    MRLI18NRes() = default;
    static MRLI18NRes& instance();
};
