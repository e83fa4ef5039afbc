#include "Session/MRLSOAPSession.h"

#include "Common/MRLException.h"
#include "Common/MRLHBLMessage.h"
#include "Common/MRLMessageNumbers.h"
#include "Session/MRLHelper.h"
#include "Session/MRLIPFLogger.h"
#include "Session/MRLPerfLogger.h"
#include "Session/MRLProperty.h"
#include "Session/MRLRTUsageLogger.h"
#include "Session/detail/AmbientTraffic.h"
#include "Session/detail/Exchange.h"
#include "Session/detail/FaultCode.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLSOAPFault.h"
#include "serialization/MRLSOAPFaultException.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <cstring>
#include <new>

using mrl::detail::Exchange;

const char* const MRLSOAPSession::SESSION_CONFIG_DOC_START = "<sessionConfigDocument><serviceID>";
const char* const MRLSOAPSession::SESSION_CONFIG_DOC_END = "</serviceID></sessionConfigDocument>";

namespace {

constexpr unsigned DEFAULT_REQUEST_RETRIES = 10;

bool contains(const char* text, const char* part) {
    return text != nullptr && std::strstr(text, part) != nullptr;
}

std::unique_ptr<char[]> copyOf(const char* text) {
    if (text == nullptr) {
        return nullptr;
    }
    const std::size_t size = std::strlen(text) + 1;
    std::unique_ptr<char[]> copy(hblNewChars(HBL_HERE, size));
    std::memcpy(copy.get(), text, size);
    return copy;
}

} // namespace

MRLSOAPSession::MRLSOAPSession(const MRLTavelHeader* header, MRLIPFLogger* logger, MRLTestInfo* testInfo,
                               const char* recordingBaseDir, const char* playbackBaseDir,
                               const char* clientID)
    : m_tavelHeader(header)
    , m_testInfo(testInfo)
    , m_logger(logger)
    , m_clientID(clientID)
    , m_recordingBaseDir(recordingBaseDir)
    , m_playbackBaseDir(playbackBaseDir) {
    initialize();
    if (m_recordingBaseDir == nullptr && m_playbackBaseDir == nullptr) {
        m_ambientTraffic = mrl::detail::AmbientTraffic::fromEnvironment(m_recordingMode == 1);
        if (m_ambientTraffic != nullptr) {
            m_recordingBaseDir = m_ambientTraffic->recordingDir();
            m_playbackBaseDir = m_ambientTraffic->playbackDir();
        }
    }
    if (m_logger == nullptr) {
        std::unique_ptr<MRLIPFLogger> own(MRLIPFLogger::create(nullptr));
        MRLIPFLogger::initialize();
        own->setRTUsageLoggerName("Audit.RTUsage.MRL");
        own->setPerfLoggerName("Perf.MRL");
        m_logger = own.release();
        m_ownsLogger = true;
    }
}

MRLSOAPSession::~MRLSOAPSession() {
    if (m_ownsLogger) {
        delete m_logger;
    }
}

void MRLSOAPSession::initialize() {
    unsigned recordingMode = 1;
    MRLProperty::getInstance().getValue("ExternalServicesRecordingMode", recordingMode);
    m_recordingMode = recordingMode != 0 ? 1 : 0;

    unsigned retries = 0;
    MRLProperty::getInstance().getValue("NumberOfRequestRetries", retries);
    m_requestRetries = static_cast<int>(retries == 0 ? DEFAULT_REQUEST_RETRIES : retries);
}

void MRLSOAPSession::setURI(const char* uri) {
    m_uri = copyOf(uri);
}

void MRLSOAPSession::setURI(const std::string& uri) {
    m_uri = copyOf(uri.c_str());
}

void MRLSOAPSession::setLogger(MRLIPFLogger* logger) {
    if (m_ownsLogger) {
        delete m_logger;
        m_ownsLogger = false;
    }
    m_logger = logger;
}

void MRLSOAPSession::setRecordingBaseDir(const char* directory) {
    m_recordingBaseDir = directory;
    m_fileCounters.clear();
}

void MRLSOAPSession::setPlaybackBaseDir(const char* directory) {
    m_playbackBaseDir = directory;
    m_fileCounters.clear();
}

void MRLSOAPSession::getSessionConfigDoc(std::string& out) const {
    out = SESSION_CONFIG_DOC_START;
    if (m_clientID != nullptr) {
        out += m_clientID;
    }
    out += SESSION_CONFIG_DOC_END;
}

void MRLSOAPSession::resolveEndpoint(const char* soapAction, const MRLServiceCallbackI* pLoopback,
                                     I18NString& url) const {
    if (m_uri != nullptr && m_uri[0] != '\0') {
        url = I18NString(m_uri.get());
        return;
    }
    if (contains(soapAction, "contentManagerService")) {
        HBL_ASSERT_NAMED(!pLoopback, "Cannot loopback to service other than report or batchReport");
        MRLHelper::getContentManagerURI(url);
        return;
    }
    // A component of the report server reaches its own services in the process, never over the bus.
    if (contains(m_clientID, "RENQ")) {
        if (contains(soapAction, "reportService")) {
            HBL_ASSERT_NAMED(pLoopback, "Cannot send requests to the reportService");
            return;
        }
        if (contains(soapAction, "batchReportService")) {
            HBL_ASSERT_NAMED(pLoopback, "Cannot send requests to the batchReportService");
            return;
        }
    }
    HBL_ASSERT_NAMED(!pLoopback, "Cannot loopback to service other than report or batchReport");
    MRLHelper::getDispatcherURI(url, 0);
}

void MRLSOAPSession::submit(MRLPortTypeBinding& binding, MRLSOAPTrusted trusted,
                            const MRLServiceCallbackI* callback) const {
    const MRLAttachmentList attachments;
    submit(binding, attachments, trusted, callback);
}

void MRLSOAPSession::submit(MRLPortTypeBinding& binding, const MRLAttachmentList& attachments,
                            MRLSOAPTrusted trusted, const MRLServiceCallbackI* callback) const try {
    const std::string method = std::string("submit:") + binding.getOperationName();
    HBL_ASSERT(m_logger);
    MRLRTUsageLogger usage("MRLSOAPSession", method.c_str());
    if (const char* name = m_logger->getRTUsageLoggerName()) {
        usage.setLoggerName(name);
    }
    if (usage.isEnabled() != 0) {
        usage.setIds(*m_logger);
        usage.logStart();
    }

    I18NString endpoint;
    resolveEndpoint(binding.getSOAPAction(), callback, endpoint);
    const std::string narrowEndpoint = endpoint.toUtf8();
    const char* const url = narrowEndpoint.c_str();
    const MRLServiceCallbackI* const pLoopback = callback;
    HBL_ASSERT(pLoopback || (url && *url));

    MRLPerfLogger perf(I18NString("MRLSOAPSession"), I18NString(method.c_str()), 10000,
                       m_logger->getPerfLoggerName());
    if (perf.isEnabled() != 0) {
        perf.setIds(*m_logger);
    }

    if (callback != nullptr) {
        HBL_ASSERT_NAMED(attachments.empty(), "Attachments not yet supported on loopback");
        if (submitLoopback(binding, *callback) != 0) {
            return;
        }
    }

    std::string configDoc;
    getSessionConfigDoc(configDoc);
    Exchange exchange(narrowEndpoint, configDoc, !attachments.empty());
    std::unique_ptr<PLQMemoryOutputStream> requestCopy; // made only for a trusted resend
    try {
        chooseToolkit(exchange, binding);
        exchangeMessages(exchange, binding, attachments, trusted, requestCopy);
        exchange.closeResponse();
    } catch (MRLSOAPFaultException& e) {
        if (isAuditEnabled(50000) && mrl::detail::concernsTheCaller(e)) {
            std::string text;
            e.getSOAPFault().getMessages(text);
            audit(50000, "Response", "Failure", text, clientText());
        }
        exchange.giveBack();
        HBL_RETHROW("MRLSOAPSession::submit()");
    } catch (HBLThrowable& e) {
        auditFailedExchange(e.toString(), e.getMessage());
        exchange.giveBack();
        HBL_RETHROW("MRLSOAPSession::submit()");
    } catch (...) {
        MRLException unknown(eHBLSeverityError, 0);
        unknown << MRLHBLMessage(msg::unknownFailure);
        auditFailedExchange(unknown.toString(), unknown.getMessage());
        exchange.giveBack();
        throw;
    }
    exchange.release();
} catch (const std::bad_alloc&) { // before the handlers or behind them; any other failure goes on as it is
    hblRethrowCurrent("MRLSOAPSession::submit()", HBL_HERE);
}
