// How a reply enters the session, and what is logged of it.
#include "Common/MRLPLQMemoryOutputStream.h"
#include "Common/PLQEchoInputStream.h"
#include "Session/MRLAttachmentContainer.h"
#include "Session/MRLSOAPSession.h"
#include "Session/detail/FaultCode.h"
#include "Session/detail/Wire.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLSOAPFault.h"
#include "serialization/MRLSOAPFaultException.h"
#include "serialization/MRL_AttachmentHandler.h"

#include "HBLCore/HBLFailure.h"
#include "TavelTK/TavelTKMessageReader.h"

#include <array>
#include <utility>

using mrl::detail::createDeserializer;
using mrl::detail::Deserializer;

namespace {

constexpr int TRACE_SIZE = 30720;

/// Reads on as far as it goes, so that who listens to the stream sees the whole reply.
void drain(PLQInputStream& in) {
    std::array<char, 1024> piece;
    try {
        while (!PLQInputStream::isEnd(in.read(piece.data(), piece.size()))) {
        }
    } catch (
        HBLThrowable&) { // a reply that broke off breaks off again: the first failure is the one to report
    }
}

/// A large attachment moves to a temporary file.
MRL_AttachmentContainerI* createAttachmentContainer() {
    return hblNew<MRLAttachmentContainer>(HBL_HERE);
}

/// What `receive` holds: the open envelope, its tee for the log, and the deserializer.
struct Reception {
    explicit Reception(TavelTKMessageReader& from)
        : reader(from) {}
    ~Reception() { giveBack(); }
    Reception(const Reception&) = delete;
    Reception& operator=(const Reception&) = delete;

    void closeEnvelope() {
        PLQInputStream& finished = *std::exchange(in, nullptr);
        reader.closeEnvelope(finished);
    }
    std::string_view seen() const { return {trace->bytes(), static_cast<std::size_t>(trace->length())}; }
    void dropTrace() {
        echo.reset();
        trace.reset();
    }
    void giveBack() noexcept {
        try {
            deserializer.reset();
            if (in != nullptr) {
                closeEnvelope();
            }
        } catch (...) { // the failure that led here is the one to report
        }
        dropTrace();
    }

    TavelTKMessageReader& reader;
    PLQInputStream* in = nullptr; // the reader's stream, or `echo` over it
    std::unique_ptr<MRLPLQMemoryOutputStream> trace;
    std::unique_ptr<PLQEchoInputStream> echo;
    Deserializer deserializer;
};

} // namespace

void MRLSOAPSession::receive(TavelTKMessageReader& reader, MRLPortTypeBinding& binding, MRLMessageI& message,
                             int bRecording, const char* uri) const {
    Reception reception(reader);
    reception.in = &reader.openEnvelope();
    MRL_AttachmentHandler handler;
    if (isAuditEnabled(20000) || isAuditEnabled(10000)) {
        reception.trace.reset(hblNew<MRLPLQMemoryOutputStream>(HBL_HERE, TRACE_SIZE));
        reception.echo.reset(hblNew<PLQEchoInputStream>(HBL_HERE, *reception.in, *reception.trace));
        reception.in = reception.echo.get();
    }
    try {
        reception.deserializer = createDeserializer();
        reception.deserializer->setAttachmentHandler(&handler);
        reception.deserializer->parse(*reception.in, binding, message);
        reception.closeEnvelope();
        if (reception.trace != nullptr && isAuditEnabled(10000)) {
            audit(10000, "Response", "Success", reception.seen(), clientText());
        }
        reception.dropTrace();
        // Attachments stand behind the envelope and are read only now.
        handler.resolveReferences(reader, message.getObjectRegistry(), &createAttachmentContainer);
    } catch (MRLSOAPFaultException& e) {
        if (mrl::detail::concernsTheCaller(e)) {
            auditRequest(binding, uri, false);
        }
        if (isAuditEnabled(20000)) {
            if (const char* text = e.getSOAPFault().toString(e.getTavelHeader())) {
                audit(20000, "Response", "Failure", text, clientText());
            }
        }
        reception.giveBack();
        HBL_RETHROW("MRLSOAPSession::receive");
    } catch (HBLThrowable& e) {
        if (bRecording != 0 && reception.in != nullptr) {
            drain(*reception.in);
        }
        auditRequest(binding, uri, false);
        if (isAuditEnabled(20000) && reception.echo != nullptr && reception.trace != nullptr) {
            drain(*reception.echo);
            audit(20000, "Response", "Failure", reception.seen(), clientText());
        }
        reception.giveBack();
        HBL_RETHROW("MRLSOAPSession::receive");
    } catch (...) {
        auditRequest(binding, uri, false);
        reception.giveBack();
        throw;
    }
    reception.deserializer.reset(); // it knows the handler, which ends before the reception does
}
