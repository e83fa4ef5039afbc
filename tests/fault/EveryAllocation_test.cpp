// A call with each of its allocations failing once: it ends in out of memory or as ever, and leaves nothing
// behind.
#include "FailingAllocations.h"
#include "Session/DocumentFixture.h"
#include "Session/MRLDocumentOutput.h"
#include "Session/MRLSOAPSession.h"
#include "Session/Replies.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBase64BinaryMIMEProp.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLDocumentContent.h"
#include "Toolkit/MRLTavelHeader.h"
#include "serialization/MRLSOAPFaultException.h"
#include "support/FakeBus.h"
#include "support/KeyStore.h"
#include "support/ScriptedPeer.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "TavelTK/TavelTKException.h"

#include <cstdio>
#include <functional>
#include <map>
#include <thread>

using mrl::test::Aside;
using mrl::test::FailingAllocations;
using mrl::test::FakeBus;
using Trusted = MRLSOAPSession::MRLSOAPTrusted;

namespace {

const std::string s_text = "cm1, the one that is active here";

std::string good() {
    return mrl::test::answer(s_text);
}

std::string denial() {
    return mrl::test::fault("cmNoRead");
}

struct Case {
    const char* name;
    bool breaksOff; // the first reply
    bool denied;    // the next one
    Trusted trusted;
    bool attached;
    const char* expected; // how the call ends when nothing fails
    bool inParts = false; // the reply, its text in an attachment
};

/// The reply as bytes of HTTP.
std::string wholeReply(const Case& how) {
    if (!how.inParts) {
        return reply(good());
    }
    return reply(
        "--B\r\nContent-Type: text/xml\r\n\r\n" +
            mrl::test::envelope("<r><q><item xsi:type='b:documentContent'><data><value href='cid:a'/>"
                                "</data></item></q></r>") +
            "\r\n--B\r\nContent-Type: text/csv\r\nContent-ID: <a>\r\n\r\n" + s_text + "\r\n--B--\r\n",
        "200 OK", R"(multipart/related; boundary=B; type="text/xml")");
}

class EveryAllocation : public WithStore, public testing::WithParamInterface<Case> {
protected:
    /// How a call ends whose n-th allocation fails. Everything it took of the bus must be back.
    std::string endOnTheScript(long n) {
        FakeBus bus;
        for (int spare = 0; spare < 3; ++spare) { // a step that fails may use up an answer
            const bool breaksOff = GetParam().breaksOff && spare == 0;
            const bool denied = GetParam().denied && spare == 0;
            bus.script({denied ? denial() : good(), [breaksOff](const std::string& operation) {
                            const Aside aside;
                            if (breaksOff && operation == "openEnvelope(reply)") {
                                HBL_THROW(TavelTKException(6), "test");
                            }
                        }});
        }
        const std::string how = submit(n);
        EXPECT_EQ(0, bus.live);
        expectOrder(bus.calls);
        return how;
    }

    /// The same over the real transport. Each call has a path of its own: a peer may still have an answer to
    /// a call that has ended.
    std::string endOverTheWire(long n) {
        m_session.setURI(m_peer.url("/" + std::to_string(++m_calls)));
        return submit(n);
    }

    std::string submit(long n) {
        const HBLSmartPointer<MRLPortTypeBinding> call(
            MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
                GetParam().inParts ? MRLMessageI::eMRLContentQuery_Request
                                   : MRLMessageI::eMRLContentGetActiveContentManager_Request));
        MRLAttachmentList attachments;
        if (GetParam().attached) {
            attachments = {{"one", &m_document}};
        }
        std::string how = "answered";
        try {
            const FailingAllocations failing(n);
            try {
                m_session.submit(*call, attachments, GetParam().trusted, nullptr);
                m_reached = FailingAllocations::happened();
            } catch (...) {
                m_reached = FailingAllocations::happened();
                throw;
            }
        } catch (MRLSOAPFaultException&) {
            how = "fault";
        } catch (HBLOutOfMemoryError&) {
            how = "out of memory";
        } catch (HBLThrowable& e) {
            how = e.toString();
        } catch (const std::exception& e) {
            how = std::string("a standard exception: ") + e.what();
        }
        if (how == "answered") {
            EXPECT_EQ(s_text, textOf(call->getOutputMessage()));
        }
        EXPECT_EQ(nullptr, call->getInputMessage().getTavelHeader(nullptr)) << "the header was only lent";
        return how;
    }

    static std::string textOf(MRLMessageI& reply) {
        if (!GetParam().inParts) {
            return static_cast<MRLContentGetActiveContentManager_Reply&>(reply).getResult();
        }
        auto& objects = *static_cast<MRLContentQuery_Reply&>(reply).getResult();
        auto& content = static_cast<MRLDocumentContent&>(*objects.at(0));
        PLQMemoryOutputStream out(1, 1);
        *content.getData()->getValue()->streamable() >> out;
        return {out.bytes(), static_cast<std::size_t>(out.length())};
    }

    /// Writer, reader and session of each exchange, given back in this order.
    static void expectOrder(const std::vector<std::string>& calls) {
        int stage = 0; // of the exchange: 1 session, 2 writer, 3 reader, 0 nothing held
        for (const std::string& call : calls) {
            if (call.starts_with("getSession") && *std::next(&call) == "delete factory") {
                continue; // noted, and then there was no memory for it
            }
            const auto begins = [&](const char* with) { return call.starts_with(with); };
            if (begins("getSession")) {
                EXPECT_EQ(0, stage) << call;
                stage = 1;
            } else if (begins("openRequest")) {
                EXPECT_EQ(1, stage) << call;
                stage = 2;
            } else if (begins("openResponse")) {
                EXPECT_EQ(1, stage) << call;
                stage = 3;
            } else if (begins("closeRequest")) {
                EXPECT_EQ(2, stage) << call;
                stage = 1;
            } else if (begins("closeResponse")) {
                EXPECT_EQ(3, stage) << call;
                stage = 1;
            } else if (begins("release")) {
                EXPECT_EQ(1, stage) << call;
                stage = 0;
            }
        }
        EXPECT_EQ(0, stage);
    }

    void failEach(const std::function<std::string(long n)>& endOf) {
        const std::string expected = GetParam().expected;
        std::map<std::string, int> ends;
        long before = 0;
        for (int pass = 0; pass < 2; ++pass) { // the first fills what is kept for the process
            before = FailingAllocations::alive();
            ASSERT_EQ(expected, endOf(0));
            ends.clear();
            for (long n = 1; !HasFailure(); ++n) {
                SCOPED_TRACE("allocation " + std::to_string(n));
                const std::string how = endOf(n);
                if (!m_reached) {
                    break;
                }
                EXPECT_TRUE(how == expected || how == "out of memory") << how;
                ++ends[how];
                EXPECT_EQ(expected, endOf(0)) << "the next call";
            }
        }
        long kept = FailingAllocations::alive() - before;
        for (const auto& [how, count] : ends) {
            std::printf("%6d steps end in: %s\n", count, how.c_str());
            kept -= 2; // at most: the row, and a text too long for it
        }
        EXPECT_LE(kept, 0) << "blocks stay behind";
        EXPECT_EQ(1U, m_documents.files()) << "the fixture's own";
    }

    Answer answer(const std::string& request) {
        const int number = m_asked[request.substr(0, request.find("\r\n"))]++;
        if (GetParam().breaksOff && number == 0) {
            const std::string whole = wholeReply(GetParam());
            return {whole.substr(0, whole.size() - 20), Answer::close};
        }
        return {GetParam().denied && number == 0 ? reply(denial(), "500 Internal Server Error")
                                                 : wholeReply(GetParam())};
    }

    void SetUp() override {
        m_session.setURI("http://bus.example/service");
        m_document.init(0, 0);
        m_document.setMimeType("text/csv", "utf-8");
        m_document.write(std::string(5000, 'x'));
    }

    bool m_reached = false;
    int m_calls = 0;
    std::map<std::string, int> m_asked; // of the peer's: requests for each path
    ScriptedPeer m_peer{[this](const std::string& request) { return answer(request); }};
    mrl::test::Documents m_documents;
    MRLDocumentOutput m_document;
    MRLTavelHeader m_header;
    MRLSOAPSession m_session{&m_header, nullptr, nullptr, nullptr, nullptr, "test"};
};

TEST_P(EveryAllocation, FailsOnceAndTheNextCallWorks) {
    if (!GetParam().inParts) { // the script has none
        failEach([this](long n) { return endOnTheScript(n); });
    }
}

TEST_P(EveryAllocation, FailsOnceOverTheWireAndTheNextCallWorks) {
    failEach([this](long n) { return endOverTheWire(n); });
    while (m_peer.open() > 1) { // one connection is kept
        std::this_thread::yield();
    }
}

INSTANTIATE_TEST_SUITE_P(
    Session, EveryAllocation,
    testing::Values(
        Case{"plain", false, false, Trusted::eMRLSOAPUntrusted, false, "answered"},
        Case{"retried", true, false, Trusted::eMRLSOAPUntrusted, false, "answered"},
        Case{"trusted", false, false, Trusted::eMRLSOAPTrusted, false, "answered"},
        Case{"trusted_on_denial", false, true, Trusted::eMRLSOAPTrustedOnDenial, false, "answered"},
        Case{"attached", false, false, Trusted::eMRLSOAPUntrusted, true, "answered"},
        Case{"attached_both_ways", true, false, Trusted::eMRLSOAPUntrusted, true, "answered", true},
        Case{"faulting", false, true, Trusted::eMRLSOAPUntrusted, false, "fault"}),
    [](const auto& row) { return std::string(row.param.name); });

} // namespace
