#include "Common/HBLI18NBuffer.h"
#include "Common/MRLException.h"
#include "Common/MRLExceptionMessage.h"
#include "Session/MRLHelper.h"
#include "Session/MRLIPFLogger.h"
#include "Session/MRLStringDomWriter.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"
#include "support/Files.h"
#include "support/LogHarness.h"
#include "support/Table.h"
#include "support/TemporaryDirectory.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLUtCrc32.h"
#include "HBLIDOM/HBLIDOM.h"
#include "PLQStreams/PLQMemoryInputStream.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>

namespace {

HBLIDOM_Document parsed(const std::string& text) {
    HBLIDOM_Document document;
    MRLHelper::parseXML(text.data(), text.size(), document);
    return document;
}

/// A file of this test.
struct ScratchFile {
    ScratchFile() = default;
    explicit ScratchFile(const std::string& text) { std::ofstream(path, std::ios::binary) << text; }
    std::string text() const { return mrl::test::bytesOfFile(path); }
    const mrl::test::TemporaryDirectory directory;
    const std::string path = directory.path() + "/file.xml";
};

TEST(XmlHelpers, ParseFromEverySourceAndTellWhereItFails) {
    const std::string good = "<?xml version='1.0'?><a><b/></a>";
    const std::string bad = "<a>\n<b></a>";
    const ScratchFile file(bad);
    HBLIDOM_Document document = parsed(good);
    EXPECT_EQ(document.getDocumentElement().getTagName(), "a");

    expectFailure([&] { MRLHelper::parseXML(bad.data(), bad.size(), document); }, msg::malformedXmlDocument,
                  {"2", "6"}, "MRLHelper::parseXML");
    EXPECT_TRUE(document.getFirstChild().isNull()); // a new one, not the one before
    PLQMemoryInputStream stream(bad.data(), bad.size());
    expectFailure([&] { MRLHelper::parseXML(stream, document); }, msg::malformedXmlDocument, {"2", "6"});
    expectFailure([&] { MRLHelper::parseXML(file.path.c_str(), document); }, msg::malformedXmlFile,
                  {file.path, "2", "6"}, "MRLHelper::parseXML");
    expectFailure([&] { MRLHelper::parseXML("/no/such.xml", document); }, msg::malformedXmlFile,
                  {"/no/such.xml", "0", "0"});
    expectAssert([&] { MRLHelper::parseXML(nullptr, 1, document); }, "HBL_ASSERT(buffer);");
    expectAssert([&] { MRLHelper::parseXML(nullptr, document); }, "HBL_ASSERT(filename);");
    const std::string hostile = "<!DOCTYPE a [<!ENTITY e SYSTEM 'file:///etc/passwd'>]><a>&e;</a>";
    EXPECT_THROW(MRLHelper::parseXML(hostile.data(), hostile.size(), document), HBLException);
}

TEST(XmlHelpers, PutADocumentTypeInFrontOfTheFirstTag) {
    for (const auto& row : mrl::test::table("doctypes.txt")) { // document, what stands in front, behind
        std::string out;
        const int made =
            MRLHelper::addDocumentTypeDeclaration(row[0].data(), row[0].size(), out, "/d.dtd", "r");
        EXPECT_EQ(made, row[1] != "-") << row[0];
        EXPECT_EQ(out, made == 0 ? "" : row[1] + "<!DOCTYPE r SYSTEM \"/d.dtd\">" + row[2]);
    }
    std::string out;
    EXPECT_EQ(MRLHelper::addDocumentTypeDeclaration("<a/>", 4, out, nullptr, nullptr), 1);
    EXPECT_TRUE(out.starts_with("<!DOCTYPE report SYSTEM \"/")) << out;
    EXPECT_TRUE(out.ends_with("/schemas/rspec/4.0/V5_report.dtd\"><a/>")) << out;
    expectAssert([&] { MRLHelper::addDocumentTypeDeclaration(nullptr, 0, out, nullptr, nullptr); },
                 "HBL_ASSERT(buffer);");
}

TEST(XmlHelpers, LoadReportSpecificationsWithAndWithoutADocumentType) {
    for (const char* text :
         {"<report><x/></report>", "<!DOCTYPE report SYSTEM 'r.dtd'><report><x/></report>"}) {
        const ScratchFile file(text);
        HBLIDOM_Document document;
        MRLHelper::loadReportSpecificationFromFile(file.path.c_str(), document);
        EXPECT_EQ(document.getDocumentElement().getTagName(), "report");
    }
    HBLIDOM_Document before = parsed("<before/>");
    HBLIDOM_Document document = before;
    const ScratchFile empty("");
    for (const char* path : {static_cast<const char*>(nullptr), "/no/such.xml", empty.path.c_str()}) {
        MRLHelper::loadReportSpecificationFromFile(path, document);
        EXPECT_EQ(document, before);
    }
}

TEST(XmlHelpers, AddressElementsFromAStoppingAncestorOrTheRoot) {
    for (const auto& row : mrl::test::table("xpaths.txt")) { // document, element, stop, from zero, address
        const HBLIDOM_Document document = parsed(row[0]);
        for (const unsigned int stop :
             {MRLHelper::getCrc(row[2].c_str()), MRLHelper::getCrc(I18NString(row[2]))}) {
            HBLI18NBuffer got(u"before");
            MRLHelper::getDomXPath(HBLIDOM_Helper::findFirstElement(document, row[1]), got, stop,
                                   std::stoi(row[3]));
            EXPECT_EQ(got.getString().toUtf8(), row[4]) << row[0];
        }
    }
}

TEST(XmlHelpers, CloneElementsAndDocuments) {
    HBLIDOM_Document document = parsed("<!-- c --><a x='1'>t<b/></a>");
    const HBLIDOM_Document whole = MRLHelper::clone(document);
    EXPECT_EQ(HBLIDOM_Helper::toString(whole), HBLIDOM_Helper::toString(document));
    HBLIDOM_Element b = HBLIDOM_Helper::findFirstElement(document, "b");
    EXPECT_EQ(HBLIDOM_Helper::toString(MRLHelper::clone(b).getDocumentElement()), "<b/>");
    HBLIDOM_Document empty = HBLIDOM_DOMImplementation::getInstance().createDocument();
    EXPECT_TRUE(MRLHelper::clone(empty).getFirstChild().isNull());
    HBLIDOM_Node text = document.getDocumentElement().getFirstChild();
    expectAssert([&] { MRLHelper::clone(text); },
                 "HBL_ASSERT_NAMED((nodeToClone.getNodeType() == HBLIDOM_Node::DOCUMENT_NODE) || "
                 "(nodeToClone.getNodeType() == HBLIDOM_Node::ELEMENT_NODE), \"Unsupported node type.\");");
}

TEST(XmlHelpers, KeepTraceFilesWellFormedBehindEachSection) {
    const ScratchFile file;
    MRLHelper::endXmlTraceFile(MRLHelper::startXmlTraceFile(file.path.c_str(), nullptr));
    EXPECT_EQ(file.text(), "<x>\n<document>\n</document>\n</x>");
    std::FILE* const section = MRLHelper::startXmlTraceFile(file.path.c_str(), "id=\"2\"");
    std::fputs("<y/>", section);
    MRLHelper::endXmlTraceFile(section);
    EXPECT_EQ(file.text(), "<x>\n<document>\n</document>\n<document id=\"2\">\n<y/></document>\n</x>");
    EXPECT_EQ(MRLHelper::startXmlTraceFile("/no/such/dir/t.xml", nullptr), nullptr);
    MRLHelper::endXmlTraceFile(nullptr);
    expectAssert([] { MRLHelper::startXmlTraceFile(nullptr, nullptr); }, "HBL_ASSERT(fileName);");
}

TEST(MRLStringDomWriter, AppendsToTheCallersString) {
    std::string target = "before";
    MRLStringDomWriter writer(target, 5000);
    EXPECT_GE(target.capacity(), 5000U);
    DomWriter& slots = writer;
    slots.write("abc", 2);
    slots.write(nullptr, 0);
    slots.write("d");
    slots.write(nullptr);
    slots.endline();
    EXPECT_EQ(target, "beforeabd\n");
    expectAssert([&] { slots.write(nullptr, 1); }, "HBL_ASSERT(s && length > 0);");
    expectAssert([&] { slots.write("a", -1); }, "HBL_ASSERT(s && length > 0);");
    EXPECT_THROW(MRLStringDomWriter(target, std::numeric_limits<std::size_t>::max()), HBLStdExceptionError);
}

TEST(XmlHelpers, WriteFailuresAsMessageElements) {
    HBLByteBuffer out(0, 16, 16);
    MRLHelper::writeErrorMessage(out, "a < \"b\"", nullptr);
    MRLHelper::writeErrorMessage(out, "", "<raw>");
    EXPECT_STREQ(out.str(),
                 "<message type=\"layout\" severity=\"error\" title=\"a &lt; &quot;b&quot;\" location=\"\"/>"
                 "<message type=\"layout\" severity=\"error\" title=\"\" location=\"<raw>\"/>");
    out.reset();
    MRLExceptionMessage message(0x12345678); // without a text: number and parameters
    MRLHelper::writeErrorMessage(out, message, "", "a&b", "c", "", "en", nullptr);
    EXPECT_STREQ(out.str(), "<message type=\"layout\" severity=\"error\" "
                            "title=\"MRLmsgs 0x12345678: a&amp;b, c\" location=\"\"/>");
}

struct Logged {
    const char* level;
    std::vector<int> records;
};

TEST(XmlHelpers, AuditFailuresAtTheirLevelsInTheLanguageOfTheServer) {
    for (const auto& [level, records] :
         {Logged{"30000", {50000, 30000}}, Logged{"50000", {50000}}, Logged{"\"off\"", {}}}) {
        const ConfigurationFile file(
            ConfigurationFile::withParameters(ConfigurationFile::parameter("serverLocale", "de")));
        const mrl::test::LogHarness log(
            R"({"sinks": {"file": {"type": "file", "path": "log"}}, "loggers": {"Audit": {"level": )" +
            std::string(level) + R"(, "sinks": ["file"]}}})");
        const std::unique_ptr<MRLIPFLogger> logger(MRLIPFLogger::create(nullptr));
        logger->setOperationType("Logon");
        MRLException failure(0);
        failure << (MRLHBLMessage(msg::malformedXmlDocument) << 1 << 2);
        MRLHelper::logException(failure, *logger);
        HBLIllegalStateError plain(0, "not in a state");
        MRLHelper::logException(plain, *logger);

        const auto lines = log.lines();
        ASSERT_EQ(lines.size(), 2 * records.size());
        for (std::size_t i = 0; i < lines.size(); ++i) {
            const char* const words = i < records.size()
                                          ? "Das Dokument ist kein wohlgeformtes XML: Zeile 1, Spalte 2."
                                          : "not in a state";
            EXPECT_NE(lines[i].find("\"level\":" + std::to_string(records[i % records.size()])),
                      std::string::npos);
            EXPECT_NE(lines[i].find(words), std::string::npos) << lines[i];
            EXPECT_NE(lines[i].find("\"Failure\""), std::string::npos) << lines[i];
        }
    }
}

} // namespace
