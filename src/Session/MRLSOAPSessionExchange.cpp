// The attempts of one call: the first, the retries after a broken reply, the resend after a denial.
#include "Session/MRLHelper.h"
#include "Session/MRLSOAPSession.h"
#include "Session/detail/Exchange.h"
#include "Session/detail/FaultCode.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "serialization/MRLSOAPFaultException.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "PLQStreams/PLQOutputStream.h"
#include "TavelTK/TavelTKException.h"
#include "TavelTK/TavelTKMessageWriter.h"

#include <array>
#include <string_view>
#include <vector>

using mrl::detail::Exchange;

namespace {

constexpr int REPLY_BROKE_OFF = 6; // the only failure that is worth a new attempt
constexpr std::size_t REQUEST_COPY_SIZE = 30720;
constexpr std::size_t REQUEST_COPY_GROWTH = 10240;
constexpr const char* ECHO_FILE = "taveltk_client_echo.txt";
constexpr const char* RETRY_ECHO_FILE = "taveltk_client_echo_retry.txt";

bool isPermissionDenied(const char* code) {
    constexpr std::array<std::string_view, 4> codes = {"cmNoRead", "cmNoWrite", "cmNoPermission",
                                                       "cmPropertyNoPermission"};
    for (std::string_view candidate : codes) {
        if (code != nullptr && candidate == code) {
            return true;
        }
    }
    return false;
}

/// Takes back what a reply that broke off has set: the next reply may leave it out.
void forgetReply(MRLMessageI& message) {
    std::vector<const char*> names;
    message.getParameterNames(names);
    for (const char* name : names) {
        message.setParameter(name, nullptr, message.getParameterType(name));
    }
}

} // namespace

void MRLSOAPSession::exchangeMessages(Exchange& exchange, MRLPortTypeBinding& binding,
                                      const MRLAttachmentList& attachments, MRLSOAPTrusted trusted,
                                      std::unique_ptr<PLQMemoryOutputStream>& requestCopy) const {
    try {
        exchange.begin(isAuditEnabled(10000) ? ECHO_FILE : nullptr);
        sendOnce(exchange, binding, attachments, trusted, requestCopy);
        TavelTKMessageReader& reader = exchange.openResponse();
        bool again = false;
        try {
            receive(reader, binding, binding.getOutputMessage(), exchange.isRecording() ? 1 : 0,
                    exchange.getURL());
        } catch (TavelTKException& e) {
            if (e.getErrorCode() != REPLY_BROKE_OFF) {
                HBL_RETHROW("MRLSOAPSession::submit() - not HBL-BIT-0006, HBL_RETHROW().");
            }
            again = true;
        }
        if (again) {
            retry(exchange, binding, attachments, trusted, requestCopy);
        }
    } catch (MRLSOAPFaultException& e) {
        if (trusted == eMRLSOAPUntrusted || trusted == eMRLSOAPTrusted) {
            HBL_RETHROW("MRLSOAPSession::submit");
        }
        e.addBackTrace(HBL_HERE, "MRLSOAPSession::submit", "HBL_CAUGHT");
        if (!isPermissionDenied(mrl::detail::firstErrorCode(e.getSOAPFault())) || requestCopy == nullptr) {
            HBL_RETHROW("MRLSOAPSession::submit");
        }
        resendTrusted(exchange, binding, attachments, *requestCopy);
    }
}

void MRLSOAPSession::sendOnce(Exchange& exchange, MRLPortTypeBinding& binding,
                              const MRLAttachmentList& attachments, MRLSOAPTrusted trusted,
                              std::unique_ptr<PLQMemoryOutputStream>& requestCopy) const {
    TavelTKMessageWriter& writer = exchange.openRequest();
    requestCopy.reset();
    if (trusted != eMRLSOAPUntrusted && trusted != eMRLSOAPTrusted) {
        requestCopy.reset(hblNew<PLQMemoryOutputStream>(HBL_HERE, REQUEST_COPY_SIZE, REQUEST_COPY_GROWTH));
    }
    send(writer, binding, binding.getInputMessage(), attachments,
         trusted == eMRLSOAPTrustedOnDenial ? requestCopy.get() : nullptr, trusted == eMRLSOAPTrusted ? 1 : 0,
         exchange.getURL());
    exchange.closeRequest();
}

void MRLSOAPSession::retry(Exchange& exchange, MRLPortTypeBinding& binding,
                           const MRLAttachmentList& attachments, MRLSOAPTrusted trusted,
                           std::unique_ptr<PLQMemoryOutputStream>& requestCopy) const {
    const int limit = m_requestRetries;
    const bool traced = isAuditEnabled(10000);
    if (traced) {
        const std::string note =
            clientText() + " ---- RETRY submit() - Total retries = " + std::to_string(limit);
        audit(10000, "Request", "Success", note, note);
    }
    for (int attempt = 0; attempt < limit; ++attempt) {
        try {
            exchange.abandon();
            exchange.begin(traced ? RETRY_ECHO_FILE : nullptr);
            sendOnce(exchange, binding, attachments, trusted, requestCopy);
            forgetReply(binding.getOutputMessage());
            receive(exchange.openResponse(), binding, binding.getOutputMessage(),
                    exchange.isRecording() ? 1 : 0, exchange.getURL());
            return;
        } catch (MRLSOAPFaultException& e) { // an answer, so no further attempt
            HBL_RETHROW("MRLSOAPSession::submit - RESEND - ");
        } catch (TavelTKException& e) {
            if (attempt == limit - 1) {
                if (traced) {
                    const std::string note =
                        clientText() + " ---- RETRY submit() - failed after reach retry limit.";
                    audit(10000, "Request", "Failure", note, note);
                }
                HBL_RETHROW("MRLSOAPSession::submit() - failed after reach retry limit.");
            }
        }
    }
}

void MRLSOAPSession::resendTrusted(Exchange& exchange, MRLPortTypeBinding& binding,
                                   const MRLAttachmentList& attachments,
                                   PLQMemoryOutputStream& requestCopy) const {
    HBLByteBuffer encrypted(1, 256, 256);
    MRLHelper::encryptTrusted(requestCopy.bytes(), static_cast<std::size_t>(requestCopy.length()), m_clientID,
                              encrypted);
    exchange.abandon();
    HBL_ASSERT_NAMED(m_playbackBaseDir == 0, "Playback is not supported for trusted requests.");
    if (isRecording()) { // a call of its own, with a number of its own
        chooseBus(exchange, binding);
    }
    exchange.begin(nullptr);
    TavelTKMessageWriter& writer = exchange.openRequest(0); // 0 also when attachments follow
    PLQOutputStream& stream = writer.openEnvelope(binding.getSOAPAction());
    stream.write(encrypted.str(), encrypted.pcount());
    writer.closeEnvelope(stream);
    sendAttachments(writer, attachments);
    exchange.closeRequest();
    receive(exchange.openResponse(), binding, binding.getOutputMessage(), exchange.isRecording() ? 1 : 0,
            exchange.getURL());
}
