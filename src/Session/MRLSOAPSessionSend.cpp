// How a request leaves the session, and what is logged of it.
#include "Common/MRLPLQMemoryOutputStream.h"
#include "Common/PLQEchoOutputStream.h"
#include "Session/MRLDocumentOutputI.h"
#include "Session/MRLHelper.h"
#include "Session/MRLIPFLogger.h"
#include "Session/MRLSOAPSession.h"
#include "Session/detail/LentHeader.h"
#include "Session/detail/Wire.h"
#include "Toolkit/MRLPortTypeBinding.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "TavelTK/TavelTKMessageWriter.h"

#include <optional>

using mrl::detail::createSerializer;
using mrl::detail::LentHeader;
using mrl::detail::Serializer;

namespace {

constexpr int TRACE_SIZE = 30720;

std::string_view written(MRLPLQMemoryOutputStream& stream) {
    return {stream.bytes(), static_cast<std::size_t>(stream.length())};
}

} // namespace

void MRLSOAPSession::send(TavelTKMessageWriter& writer, MRLPortTypeBinding& binding, MRLMessageI& message,
                          const MRLAttachmentList& attachments, PLQMemoryOutputStream* outputStream,
                          int bTrusted, const char* uri) const {
    HBL_ASSERT(!(outputStream && bTrusted));
    PLQOutputStream* envelope = nullptr;
    Serializer serializer;
    LentHeader header;
    const auto giveBack = [&] {
        auditRequest(binding, uri, true);
        header.takeBack();
        serializer.reset();
        if (envelope != nullptr) {
            try {
                writer.closeEnvelope(*envelope);
            } catch (...) { // the failure that led here is the one to report
            }
        }
    };
    try {
        envelope = &writer.openEnvelope(binding.getSOAPAction());
        serializer = createSerializer();
        header.lend(message, m_tavelHeader);
        if (bTrusted != 0) {
            MRLPLQMemoryOutputStream clear(TRACE_SIZE);
            serializer->serialize(binding, message, clear, nullptr, 1, 0);
            HBLByteBuffer encrypted(1, 256, 256);
            MRLHelper::encryptTrusted(clear.bytes(), static_cast<std::size_t>(clear.length()), m_clientID,
                                      encrypted);
            if (isAuditEnabled(10000)) { // the cipher text, never the clear one
                audit(10000, "Request", "Success", encrypted.str(), requestContext(binding, uri));
            }
            envelope->write(encrypted.str(),
                            static_cast<std::size_t>(HBLDowncastSize::int32(encrypted.pcount())));
        } else if (isAuditEnabled(10000)) {
            MRLPLQMemoryOutputStream trace(TRACE_SIZE);
            PLQEchoOutputStream tee(*envelope, trace);
            serializer->serialize(binding, message, tee, outputStream, 1, 0);
            audit(10000, "Request", "Success", written(trace), requestContext(binding, uri));
        } else {
            serializer->serialize(binding, message, *envelope, outputStream, 1, 0);
        }
        serializer.reset();
        PLQOutputStream& finished = *envelope;
        envelope = nullptr;
        writer.closeEnvelope(finished);
        header.takeBack();
    } catch (HBLThrowable& e) {
        giveBack();
        HBL_RETHROW("MRLSOAPSession::sendRequest");
    } catch (...) {
        giveBack();
        throw;
    }
    sendAttachments(writer, attachments);
}

void MRLSOAPSession::sendAttachments(TavelTKMessageWriter& writer,
                                     const MRLAttachmentList& attachments) const {
    for (const auto& [contentId, document] : attachments) {
        HBL_ASSERT(document);
        const char* const headers = document->getCompressed() != 0 ? "Content-Encoding:gzip" : "";
        PLQOutputStream* stream = nullptr;
        const auto giveBack = [&, &open = stream] {
            if (open != nullptr) {
                try {
                    writer.closeAttachment(*open);
                } catch (...) { // the failure that led here is the one to report
                }
            }
        };
        try {
            stream = &writer.openAttachment(document->getMimeType(), document->getEncoding(), headers,
                                            contentId, 1);
            *document >> *stream;
            PLQOutputStream& finished = *stream;
            stream = nullptr;
            writer.closeAttachment(finished);
        } catch (HBLThrowable& e) {
            giveBack();
            HBL_RETHROW("MRLSOAPSession::sendRequest");
        } catch (...) {
            giveBack();
            throw;
        }
    }
}

bool MRLSOAPSession::isAuditEnabled(int level) const {
    return m_logger != nullptr && m_logger->isAuditEnabled(level) != 0;
}

void MRLSOAPSession::audit(int level, const char* operation, const char* status, std::string_view text,
                           std::string_view context) const {
    I18NString data(text);
    I18NString error(context);
    m_logger->audit(level, operation, status, &data, &error);
}

std::string MRLSOAPSession::requestContext(const MRLPortTypeBinding& binding, const char* uri) const {
    std::string context = clientText();
    if (uri != nullptr) {
        context += " URI=";
        context += uri;
    }
    context += " SOAPACTION=";
    context += binding.getSOAPAction();
    return context;
}

void MRLSOAPSession::auditRequest(MRLPortTypeBinding& binding, const char* uri, bool isFailure) const {
    if (!isAuditEnabled(40000) || isAuditEnabled(10000)) {
        return;
    }
    MRLPLQMemoryOutputStream request(TRACE_SIZE);
    try {
        createSerializer()->serialize(binding, binding.getInputMessage(), request, nullptr, 1, 0);
    } catch (...) { // what was written so far is still worth a record
    }
    audit(40000, "Request", isFailure ? "Failure" : "Info", written(request), requestContext(binding, uri));
}

void MRLSOAPSession::auditFailedExchange(const char* fullText, const char* shortText) const {
    if (isAuditEnabled(40000)) {
        if (fullText != nullptr) {
            audit(40000, "Response", "Failure", fullText, clientText());
        }
    } else if (isAuditEnabled(50000) && shortText != nullptr) {
        audit(50000, "Response", "Failure", shortText, clientText());
    }
}
