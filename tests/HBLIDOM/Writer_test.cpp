// The XML that documents are written as.
#include "support/Files.h"
#include "support/TemporaryDirectory.h"

#include "HBLIDOM/Documents.h"
#include "PLQStreams/PLQFileOutputStream.h"

using mrl::test::expectDomFailure;
using mrl::test::parsed;

namespace {

TEST(Writer, WhatWasParsedIsWrittenBack) {
    const std::string element =
        "<p:a xmlns=\"urn:d\" xmlns:p=\"urn:p\"> <b i=\"1\" j=\"\"/>t<!-- c --><![CDATA[<&>]]><?pi data?>\n"
        "\xC3\xA4 \xF0\x9F\x93\x88<c><d>x</d></c></p:a>";
    const HBLIDOM_Document document = parsed("<!--first-->" + element + "<?last one?>");
    EXPECT_EQ(HBLIDOM_Helper::toString(document.getDocumentElement()), element);
    EXPECT_EQ(HBLIDOM_Helper::toString(document),
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!--first-->\n" + element + "\n<?last one?>\n");
}

TEST(Writer, EveryTextAndAttributeComesBackAsItWas) {
    HBLIDOM_Document document = HBLIDOM_DOMImplementation::getInstance().createDocument("", "a");
    HBLIDOM_Element root = document.getDocumentElement();
    root.setAttribute("i", "<\"'&>\t\r\n\xC3\xA4");
    root.appendChild(document.createTextNode("<\"'&>]]>\t\r\n\xC3\xA4"));
    const std::string xml = HBLIDOM_Helper::toString(root);
    EXPECT_EQ(xml, "<a i=\"&lt;&quot;'&amp;&gt;&#9;&#13;&#10;\xC3\xA4\">"
                   "&lt;\"'&amp;&gt;]]&gt;\t&#13;\n\xC3\xA4</a>");
    const HBLIDOM_Element again = parsed(xml).getDocumentElement();
    EXPECT_EQ(again.getAttribute("i"), root.getAttribute("i"));
    EXPECT_EQ(HBLIDOM_Helper::getElementText(again), HBLIDOM_Helper::getElementText(root));
}

TEST(Writer, CharactersThatXmlCannotHoldAreReplaced) {
    HBLIDOM_Document document = HBLIDOM_DOMImplementation::getInstance().createDocument("", "a");
    HBLIDOM_Element root = document.getDocumentElement();
    root.appendChild(document.createTextNode(I18NString(u"\x01|\xD800|\xFFFE|\xFFFF|\xFFFD|\x00FF")));
    EXPECT_EQ(HBLIDOM_Helper::toString(root), "<a>\uFFFD|\uFFFD|\uFFFD|\uFFFD|\uFFFD|\u00FF</a>");
}

TEST(Writer, GoesToWhereTheDerivedClassSaysAndEndsItsLinesThere) {
    struct Collected : DomWriter {
        Collected()
            : DomWriter("utf-8") {}
        using DomWriter::write;
        void write(const char* s, int length) override { all.append(s, static_cast<std::size_t>(length)); }
        void endline() override { all += "[end]"; }
        std::string all;
    } collected;
    HBLIDOM_Helper::write(parsed("<a>" + std::string(20'000, 'x') + "</a>"), collected);
    EXPECT_EQ(collected.all,
              "<?xml version=\"1.0\" encoding=\"UTF-8\"?>[end]<a>" + std::string(20'000, 'x') + "</a>[end]");
    collected.write("z");
    collected.write(nullptr);
    EXPECT_EQ(collected.all.back(), 'z');

    const mrl::test::TemporaryDirectory directory;
    const std::string path = directory.path() + "/a.xml";
    {
        PLQFileOutputStream file(path);
        DomStreamWriter writer(file);
        HBLIDOM_Helper::write(parsed("<a/>").getDocumentElement(), writer);
        writer.flush();
    }
    EXPECT_EQ(mrl::test::bytesOfFile(path), "<a/>");
}

TEST(Writer, OtherEncodingsAndWhatDoesNotStandAloneAreRefused) {
    struct Latin : DomWriter {
        Latin()
            : DomWriter("ISO-8859-1") {}
        void write(const char*, int) override {}
    };
    expectDomFailure([] { Latin(); }, HBLIDOM_DOMException::NOT_SUPPORTED_ERR,
                     "DomWriter::DomWriter on the encoding ISO-8859-1");
    expectDomFailure(
        [] { HBLIDOM_Helper::toString(parsed("<a i=''/>").getDocumentElement().getAttributes().item(0)); },
        HBLIDOM_DOMException::NOT_SUPPORTED_ERR, "Helper::write on the attribute \"i\"");
}

TEST(Writer, DepthCostsNoStack) {
    const HBLIDOM_Document document = mrl::test::nested(mrl::test::veryDeep);
    const std::string xml = HBLIDOM_Helper::toString(document.getDocumentElement());
    EXPECT_EQ(xml.size(), 7U * (mrl::test::veryDeep - 1) + 4);
    EXPECT_EQ(xml.substr(3 * (mrl::test::veryDeep - 1), 12), "<a/></a></a>");
}

} // namespace
