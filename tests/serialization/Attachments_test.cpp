// References in an envelope and the attachments behind them.
#include "Common/MRLMessageNumbers.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBooleanProp.h"
#include "Toolkit/MRLContentQueryTenantMembership_Reply.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLReport.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLTokenProp.h"
#include "Toolkit/MRLZOR.h"
#include "serialization/DefaultAttachmentContainer.h"
#include "serialization/Envelopes.h"
#include "serialization/MRL_AttachmentHandler.h"
#include "support/Bytes.h"
#include "support/Failure.h"

#include "PLQStreams/PLQStreamError.h"
#include "TavelTK/TavelTKAttachmentReader.h"
#include "TavelTK/TavelTKMessageReader.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

using mrl::test::Call;
using mrl::test::ChunkedStream;
using mrl::test::envelopeOf;
using mrl::test::packed;
using mrl::test::replyWith;

namespace {

struct Part {
    std::string id;
    std::string bytes;
    bool isGzipped = false;
};

class FakeAttachment : public TavelTKAttachmentReader {
public:
    explicit FakeAttachment(const Part& part)
        : m_part(part)
        , m_stream(part.bytes, 3) {}
    const char* getContentID() override { return m_part.id.c_str(); }
    const char* getContentType() override { return ""; }
    int getContentLength() override { return -1; }
    const char* getHeader(const char*) override { return nullptr; }
    int isGzipped() override { return m_part.isGzipped ? 1 : 0; }
    PLQInputStream& getInputStream() override { return m_stream; }

private:
    const Part& m_part;
    ChunkedStream m_stream;
};

class FakeReader : public TavelTKMessageReader {
public:
    explicit FakeReader(std::vector<Part> parts)
        : TavelTKMessageReader(1)
        , m_parts(std::move(parts)) {}
    void getEnvelope(HBLIDOM_Node&) override {}
    PLQInputStream& openEnvelope() override { throw std::logic_error("not asked for here"); }
    void closeEnvelope(PLQInputStream&) override {}
    int canHaveAttachments() override { return m_parts.empty() ? 0 : 1; }
    int hasMoreAttachments() override { return m_next < m_parts.size() ? 1 : 0; }
    TavelTKAttachmentReader& openNextAttachment() override {
        m_open = std::make_unique<FakeAttachment>(m_parts.at(m_next++));
        return *m_open;
    }
    void closeAttachment(TavelTKAttachmentReader&) override { m_open.reset(); }
    const char* getHeader(const char*) override { return nullptr; }

private:
    std::vector<Part> m_parts;
    std::size_t m_next = 0;
    std::unique_ptr<FakeAttachment> m_open;
};

/// Reads `document` into the reply of `call`, then resolves its references with `parts`.
int resolved(Call& call, const std::string& document, std::vector<Part> parts) {
    MRL_AttachmentHandler handler;
    MRLSOAPMessageIDeserializer reader;
    reader.setAttachmentHandler(&handler);
    ChunkedStream stream(document, 7);
    reader.parse(stream, *call.binding, call.reply());
    FakeReader attachments(std::move(parts));
    return handler.resolveReferences(attachments, call.reply().getObjectRegistry(), nullptr);
}

const char* const TWO_REFERENCES = "<q><item i:type='b:report'>"
                                   "<defaultName><value href='cid:p1'/></defaultName>"
                                   "<searchPath><value href='cid:p1'></value></searchPath></item></q>";

MRLReport& reportIn(Call& call) {
    return static_cast<MRLReport&>(*static_cast<MRLContentQuery_Reply&>(call.reply()).getResult()->at(0));
}

TEST(Attachments, APartServesEachReferenceToItsIdAndOthersKeepTheirPlaceholder) {
    const struct {
        const char* what;
        std::vector<Part> parts;
        const char* value;
    } rows[] = {{"a frame does not count", {{"<p1>", "the value"}, {"unasked", "x"}}, "the value"},
                {"packed", {{"p1", packed("inflated"), true}}, "inflated"},
                {"two of one id", {{"p1", "first"}, {"p1", "second"}}, "first"},
                {"another id", {{"P1", "other case"}}, ""},
                {"no parts", {}, ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Call call;
        EXPECT_EQ(resolved(call, replyWith(TWO_REFERENCES), row.parts) != 0, *row.value != '\0');
        EXPECT_STREQ(reportIn(call).getDefaultName()->getValue(), row.value);
        EXPECT_STREQ(reportIn(call).getSearchPath()->getValue(), row.value);
    }
}

TEST(Attachments, ItemsOfATextArrayAndBinaryMembersAreServedInTheirPlaces) {
    Call texts(MRLMessageI::eMRLContentQueryTenantMembership_Request);
    EXPECT_NE(resolved(texts, replyWith("<q><item>a</item><item href='cid:p1'/></q>"), {{"p1", "b"}}), 0);
    MRLStringArray& array = *static_cast<MRLContentQueryTenantMembership_Reply&>(texts.reply()).getResult();
    ASSERT_EQ(array.size(), 2U);
    EXPECT_STREQ(array.at(0), "a");
    EXPECT_STREQ(array.at(1), "b");

    Call binary;
    EXPECT_NE(resolved(binary,
                       envelopeOf(
                           "<s:Header><b:tavelHeader><ZOR><securityBlob href='cid:p2'/></ZOR></b:tavelHeader>"
                           "</s:Header><s:Body><r/></s:Body>"),
                       {{"p2", "blob"}}),
              0);
    const MRLBase64Binary& blob = *binary.reply().getTavelHeader(nullptr)->getZOR()->getSecurityBlob();
    EXPECT_EQ(std::string(blob.str(), blob.pcount()), "blob");
}

TEST(Attachments, ABooleanIsReadFromItsPart) {
    const Call call;
    MRLBooleanProp flag;
    const auto serve = [&](const char* text) {
        MRL_AttachmentHandler handler;
        handler.registerHref("p1", &flag, "value", MRLSchemaTypeI::eBoolean, 0);
        FakeReader parts(std::vector<Part>{{"p1", text}});
        handler.resolveReferences(parts, call.reply().getObjectRegistry(), nullptr);
    };
    serve(" true\n");
    EXPECT_EQ(*flag.getValue(), 1);
    expectFailure([&] { serve("maybe"); }, msg::invalidNumber, {"value", "boolean"});
}

TEST(Attachments, ADamagedOrEndlessPackedPartEndsTheReply) {
    const std::string cut = packed("inflated");
    Call damaged;
    EXPECT_THROW(resolved(damaged, replyWith(TWO_REFERENCES), {{"p1", cut.substr(0, cut.size() - 3), true}}),
                 PLQStreamError);
    const std::string bomb =
        packed(std::string(std::size_t{40} << 20, '\0')); // under the limit, twice is over
    Call one;
    EXPECT_NE(resolved(one, replyWith(TWO_REFERENCES), {{"p1", bomb, true}}), 0);
    Call two;
    expectFailure(
        [&] {
            resolved(two, replyWith(TWO_REFERENCES), {{"p1", bomb, true}, {"p2", bomb, true}});
        },
        msg::malformedXml,
        {"The bytes unpacked from attachments for each byte received exceed the limit of 200 "
         "(MRLReaderLimits::unpackedRatio)."},
        "MRLSOAPMessageIDeserializer::parse");
}

TEST(Attachments, TenThousandPartsServeTenThousandReferences) {
    std::string items;
    std::vector<Part> parts;
    for (int i = 10000; i-- > 0;) {
        items += "<item href='cid:" + std::to_string(i) + "'/>";
        parts.push_back({std::to_string(i * 7919 % 10000), "v" + std::to_string(i * 7919 % 10000)});
    }
    Call call(MRLMessageI::eMRLContentQueryTenantMembership_Request);
    EXPECT_NE(resolved(call, replyWith("<q>" + items + "</q>"), std::move(parts)), 0);
    MRLStringArray& array = *static_cast<MRLContentQueryTenantMembership_Reply&>(call.reply()).getResult();
    ASSERT_EQ(array.size(), 10000U);
    for (std::size_t i = 0; i < 10000; ++i) {
        ASSERT_EQ(array.at(i), "v" + std::to_string(9999 - i));
    }
}

TEST(Attachments, OnlyAContentIdIsAReference) {
    EXPECT_EQ(MRL_AttachmentHandler::getCid(u"cid:"), nullptr);
    EXPECT_EQ(MRL_AttachmentHandler::getCid(u"#x"), nullptr);
    EXPECT_EQ(MRL_AttachmentHandler::getCid(u"CID:x"), nullptr);
    EXPECT_EQ(MRL_AttachmentHandler::getCid(nullptr), nullptr);
    EXPECT_EQ(std::u16string_view(MRL_AttachmentHandler::getCid(u"cid:x")), u"x");
}

TEST(Attachments, AContainerIsNotCopied) {
    DefaultAttachmentContainer container;
    expectAssert([&] { DefaultAttachmentContainer copy(container); },
                 "HBL_ASSERT_NAMED(FALSE, \"DefaultAttachmentContainer::operator= - not supported.\");");
}

} // namespace
