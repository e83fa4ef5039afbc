#include "soap/RequestProcessor.h"

#include "Toolkit/MRLBatchReportServicePortType.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLReportServicePortType.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "serialization/MRLFromFactory.h"
#include "serialization/MRLSOAPMessageIDeserializerFactory.h"
#include "serialization/MRLSOAPMessageIDeserializerI.h"
#include "serialization/MRL_AttachmentHandler.h"
#include "soap/AttachedBytes.h"
#include "soap/Envelope.h"
#include "soap/Refusal.h"
#include "soap/ServiceFault.h"
#include "soap/TrustedEnvelope.h"
#include "store/SqliteError.h"
#include "store/StoreError.h"

#include "HBLCore/HBLAssertError.h"
#include "HBLCore/HBLOutOfMemoryError.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLThrowable.h"
#include "TavelTK/TavelTKMessageReader.h"

#include <string_view>
#include <vector>

namespace mrl::bus {

namespace {

/// Thrown once a request is read and turns out to ask for something the bus does not do.
struct NotOffered {
    std::string operation;
    std::string service;
};

/// The one call of a request; null when the header asks for an anonymous logon and the body for nothing.
struct ReadRequest {
    HBLSmartPointer<MRLPortTypeBinding> binding;
    MRLTavelHeader* header = nullptr; // of the binding's request
};

bool asksForLogon(const MRLTavelHeader* header) {
    const MRLZOR* zor = header == nullptr ? nullptr : header->getZOR();
    return zor != nullptr && zor->getAction() != nullptr && std::string_view(zor->getAction()) == "logon";
}

ReadRequest read(PLQInputStream& envelope, TavelTKMessageReader& message) {
    const std::vector<MRLPortTypeI*> portTypes{&MRLContentManagerServicePortType::getInstance(),
                                               &MRLReportServicePortType::getInstance(),
                                               &MRLBatchReportServicePortType::getInstance()};
    const auto reader = mrlFromFactory<MRLSOAPMessageIDeserializerFactory>();
    MRL_AttachmentHandler attachments;
    reader->setAttachmentHandler(&attachments);
    ReadRequest request;
    try {
        reader->parse(envelope, portTypes, request.binding);
        request.header = reader->getTavelHeader();
        message.closeEnvelope(envelope);
        if (attachments.resolveReferences(message, request.binding->getInputMessage().getObjectRegistry(),
                                          &AttachedBytes::create) == 0)
            throw Unreadable("The envelope refers to an attachment that did not come with it.");
    } catch (const HBLOutOfMemoryError&) {
        throw;
    } catch (const HBLAssertError& e) { // no operation in the body
        if (!asksForLogon(reader->getTavelHeader()))
            throw Unreadable(e.getMessage());
    } catch (const HBLThrowable& e) {
        throw Unreadable(e.getMessage());
    }
    return request;
}

Answer refused(const ServiceFault& fault) {
    return {true, fault.toEnvelope()};
}

} // namespace

RequestProcessor::RequestProcessor(ContentStore& store, ServiceSettings settings)
    : m_maxAttachmentBytes(settings.maxAttachmentBytes)
    , m_passports(std::move(settings.passports))
    , m_conversations(std::move(settings.conversations))
    , m_contentManager(store)
    , m_logon(store, m_passports)
    , m_reportService(store, m_conversations) {}

Caller RequestProcessor::callerOf(MRLTavelHeader* header, bool trusted) {
    const MRLZOR* zor = header == nullptr ? nullptr : header->getZOR();
    const MRLZORPassport* passport = zor == nullptr ? nullptr : zor->getZORPassport();
    const char* id = passport == nullptr ? nullptr : passport->getId();
    if (id == nullptr || *id == '\0')
        return {};
    auto caller = m_passports.use(id);
    if (!caller)
        throw Refusal("busPassportExpired",
                      "The passport has expired, or this bus did not give it out; log on again.");
    caller->mayChange = caller->mayChange || trusted; // a component vouches for what it encrypts
    return *caller;
}

Answer RequestProcessor::perform(TavelTKMessageReader& message) {
    const AttachedBytes::Budget budget(m_maxAttachmentBytes);
    TrustedEnvelope envelope(message.openEnvelope(), m_trustedReader);
    const ReadRequest request = read(envelope.clear(), message);
    if (!request.binding)
        return {false, m_logon.anonymous()};
    Call call{*request.binding, {}};
    if (!asksForLogon(request.header))
        call.caller = callerOf(request.header, envelope.isTrusted());
    if (!m_contentManager.perform(call) && !m_reportService.perform(call) && !m_logon.perform(call))
        throw NotOffered{request.binding->getOperationName(), request.binding->getBoundPortType().getName()};
    return {false, replyEnvelope(*request.binding), std::move(call.attachments.list())};
}

Answer RequestProcessor::unreadable(const std::string& reason) {
    return refused({true, "The request could not be read.", "busBadRequest", reason});
}

Answer RequestProcessor::process(TavelTKMessageReader& request) {
    try {
        return perform(request);
    } catch (const StoreError& e) {
        return refused(
            {true, "The content manager refused the request.", std::string(codeText(e.code())), e.what()});
    } catch (const Refusal& e) {
        return refused({true, "The bus refused the request.", e.code(), e.what()});
    } catch (const Unreadable& e) {
        return unreadable(e.what());
    } catch (const NotOffered& e) {
        return refused(
            {false, "The bus does not offer this operation.", "busNotOffered",
             "mrl-bus does not offer the operation '" + e.operation + "' of " + e.service +
                 "; of contentManagerService it offers query, add, update, delete, logon, logoff and "
                 "havePassportsExpired, of reportService and batchReportService run, wait, getOutput, "
                 "cancel and release."});
    } catch (const SqliteError& e) {
        return refused({false, "The content store failed.", "busStoreFailure", e.what()});
    } catch (const HBLThrowable& e) {
        return refused({false, "The bus failed.", "busFailure", e.getMessage()});
    } catch (const std::exception& e) {
        return refused({false, "The bus failed.", "busFailure", e.what()});
    }
}

} // namespace mrl::bus
