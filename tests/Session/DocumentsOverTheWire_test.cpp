// Documents as attachments, both ways over the real transport.
#include "DocumentFixture.h"
#include "Session/MRLDocumentOutput.h"
#include "Session/MRLSOAPSession.h"
#include "Session/Replies.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBase64BinaryMIMEProp.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLContentAdd_Request.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLDocumentContent.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/Bytes.h"
#include "support/ScriptedPeer.h"

#include "HBLCore/HBLSmartPointer.h"
#include "PLQStreams/PLQStreamError.h"
#include "TavelTK/TavelTKException.h"

#include <gmock/gmock.h>

using mrl::test::bytesOf;
using mrl::test::Documents;
using mrl::test::FullDisk;
using testing::HasSubstr;
using Binding = HBLSmartPointer<MRLPortTypeBinding>;

namespace {

Binding bind(MRLMessageI::MessageType type) {
    return Binding(MRLContentManagerServicePortType::getInstance().createPortTypeBinding(type));
}

void submit(const std::string& url, const Binding& call, const MRLAttachmentList& attachments = {}) {
    MRLTavelHeader header;
    MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "test");
    session.setURI(url);
    session.submit(*call, attachments, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
}

std::string envelope(const std::string& parameters) {
    return mrl::test::envelope("<r>" + parameters + "</r>");
}

// An attachment's id may hold what is white space or an escape elsewhere: it is bytes.
const char* const ODD = "a b/%20+;=@host.example";
const char* const WITH_MARKUP = "a&<b>"; // of a peer; the toolkit's own ids go out unescaped
const char* const WITH_MARKUP_IN_XML = "a&amp;&lt;b&gt;";

TEST(DocumentsOverTheWire, GoOutAsTheyAreStored) {
    const Documents documents;
    ScriptedPeer peer({{reply(envelope(""))}});
    const std::string large = bytesOf(50000);
    MRLDocumentOutput file;
    file.init(0, 0);
    file.setMimeType("text/csv", "utf-8");
    file.write(large);
    MRLDocumentOutput packed;
    packed.init(1, 1);
    packed.setMimeType("text/html", nullptr);
    *packed.getOStream() << "<html/>";
    const Binding call = bind(MRLMessageI::eMRLContentAdd_Request);
    auto& request = static_cast<MRLContentAdd_Request&>(call->getInputMessage());
    MRLObjectRegistryI& registry = request.getObjectRegistry();
    auto* const content = new MRLDocumentContent;
    registry.registerPointer(content);
    MRLBase64Binary& data = *content->getData(&registry)->getValue(&registry);
    data.reference(ODD, 0);
    data.setIsContentId(1);
    request.getObjects(&registry)->push_back(content);
    submit(peer.url(), call, {{ODD, &file}, {"packed", &packed}});
    const std::string sent = peer.request(0);
    EXPECT_THAT(sent, HasSubstr(std::string("href=\"cid:") + ODD + "\""));
    EXPECT_THAT(sent, HasSubstr("Content-Type: text/csv; charset=utf-8\r\n"));
    EXPECT_THAT(sent, HasSubstr(std::string("Content-ID: <") + ODD + ">\r\n\r\n" + large + "\r\n--"));
    EXPECT_THAT(sent, HasSubstr("Content-Encoding:gzip\r\n"));
    EXPECT_THAT(sent, HasSubstr("Content-ID: <packed>\r\n\r\n\x1f\x8b"));
    EXPECT_THROW(submit(peer.url(), call, {{"one", &file}, {"one", &packed}}), TavelTKException);
    EXPECT_THROW(submit(peer.url(), call, {{"a\r\nX: b", &file}}), TavelTKException);
}

std::string partsReply(const std::string& bytes) {
    const std::string body =
        "--B\r\nContent-Type: text/xml\r\nContent-ID: <root>\r\n\r\n" +
        envelope(std::string("<q><item xsi:type='b:documentContent'><data><value href='cid:") +
                 WITH_MARKUP_IN_XML + "'/></data></item></q>") +
        "\r\n--B\r\nContent-Type: text/csv\r\nContent-ID: <" + WITH_MARKUP + ">\r\n\r\n" + bytes +
        "\r\n--B--\r\n";
    return reply(body, "200 OK", R"(multipart/related; boundary=B; type="text/xml"; start="<root>")");
}

TEST(DocumentsOverTheWire, ComeInAsStreamsAndLeaveTheirFileWithTheReply) {
    const Documents documents;
    const std::string large = bytesOf(50000);
    ScriptedPeer peer({{partsReply(large)}, {partsReply(large)}});
    {
        const Binding call = bind(MRLMessageI::eMRLContentQuery_Request);
        submit(peer.url(), call);
        auto& result = static_cast<MRLContentQuery_Reply&>(call->getOutputMessage());
        const auto& content = static_cast<MRLDocumentContent&>(*result.getResult()->at(0));
        const MRL_Streamable* const data = content.getData()->getValue()->streamable();
        ASSERT_NE(data, nullptr);
        EXPECT_EQ(documents.files(), 1U);
        for (int twice = 0; twice < 2; ++twice) {
            EXPECT_EQ(mrl::test::written([&](PLQOutputStream& out) { *data >> out; }), large);
        }
    }
    EXPECT_EQ(documents.files(), 0U);
    const FullDisk disk(20000);
    EXPECT_THROW(submit(peer.url(), bind(MRLMessageI::eMRLContentQuery_Request)), PLQStreamError);
    EXPECT_EQ(documents.files(), 0U);
}

} // namespace
