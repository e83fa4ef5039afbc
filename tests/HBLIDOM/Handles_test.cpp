// Handles: what they mean, what they keep alive, how they fail; and the searches of the helper.
#include "HBLIDOM/Documents.h"

#include <gmock/gmock.h>

using mrl::test::expectDomFailure;
using mrl::test::nested;
using mrl::test::parsed;

namespace {

HBLIDOM::Document newDocument() {
    return HBLIDOM::DOMImplementation::getInstance().createDocument("urn:x", "x:root");
}

TEST(Handles, ANodeKeepsItsDocumentAliveAndCopiesMeanTheSameNode) {
    HBLIDOM::Node text;
    HBLIDOM::NodeList list;
    HBLIDOM::NamedNodeMap attributes;
    {
        const HBLIDOM::Document document = parsed("<a i='1'><b>text</b></a>");
        const HBLIDOM::Element root = document.getDocumentElement();
        text = root.getFirstChild().getFirstChild();
        list = root.getChildNodes();
        attributes = root.getAttributes();
        HBLIDOM::Element again = document.getDocumentElement();
        EXPECT_EQ(again, root);
        again.setAttribute("i", "2");
    }
    EXPECT_EQ(text.getNodeValue(), "text");
    EXPECT_EQ(text.getParentNode(), list.item(0));
    EXPECT_EQ(attributes.item(0).getNodeValue(), "2");
    EXPECT_EQ(text.getOwnerDocument().getDocumentElement().getTagName(), "a");
    EXPECT_EQ(text.getOwnerDocument().getOwnerDocument(), text.getOwnerDocument());
}

TEST(Handles, NamesNamespacesAndOrderAreThoseOfTheDocument) {
    const auto document = parsed("<p:a xmlns:p='urn:p' p:i='1' j='2'>x<b xmlns='urn:b'/><!--c--></p:a>");
    const HBLIDOM::Element root = document.getDocumentElement();
    EXPECT_EQ(root.getNodeName(), "p:a");
    EXPECT_EQ(root.getLocalName(), "a");
    EXPECT_EQ(root.getPrefix(), "p");
    EXPECT_EQ(root.getNamespaceURI(), "urn:p");
    EXPECT_EQ(root.getAttribute("p:i"), "1");
    EXPECT_EQ(root.getAttributeNS("urn:p", "i"), "1");
    EXPECT_EQ(root.getAttributeNS("", "j"), "2");
    EXPECT_EQ(root.getAttributeNS("urn:p", "j"), "");
    const HBLIDOM::NamedNodeMap attributes = root.getAttributes();
    ASSERT_EQ(attributes.getLength(), 3U);
    const HBLIDOM::Attr declaration(attributes.item(2));
    EXPECT_EQ(declaration.getName(), "xmlns:p");
    EXPECT_EQ(declaration.getPrefix(), "xmlns");
    EXPECT_EQ(declaration.getLocalName(), "p");
    EXPECT_NE(attributes.item(3).isNull(), 0);
    const HBLIDOM::NodeList children = root.getChildNodes();
    ASSERT_EQ(children.getLength(), 3U);
    EXPECT_EQ(children.item(0), root.getFirstChild());
    EXPECT_EQ(children.item(1).getNamespaceURI(), "urn:b");
    EXPECT_EQ(children.item(1).getPreviousSibling().getNodeType(), HBLIDOM_Node::TEXT_NODE);
    EXPECT_EQ(children.item(2), root.getLastChild());
    EXPECT_EQ(children.item(2).getNodeType(), HBLIDOM_Node::COMMENT_NODE);
    EXPECT_NE(children.item(3).isNull(), 0);
    EXPECT_NE(children.item(2).getNextSibling().isNull(), 0);
    EXPECT_NE(children.item(0).getAttributes().isNull(), 0);
    EXPECT_EQ(children.item(0).getAttributes().getLength(), 0U);
}

TEST(Handles, ADeclarationThatIsSetIsTheOneThatParsingWouldGive) {
    HBLIDOM::Document document = newDocument();
    HBLIDOM::Element root = document.getDocumentElement();
    root.setAttribute("xmlns:x", "urn:x");
    root.setAttribute("i", "1");
    root.setAttributeNS("urn:x", "x:j", "2");
    const HBLIDOM::NamedNodeMap attributes = root.getAttributes();
    ASSERT_EQ(attributes.getLength(), 3U);
    EXPECT_EQ(attributes.item(0).getLocalName(), "");
    EXPECT_EQ(attributes.item(1).getNamespaceURI(), "urn:x");
    EXPECT_EQ(attributes.item(2).getPrefix(), "xmlns");
    EXPECT_EQ(attributes.item(2).getNamespaceURI(), "http://www.w3.org/2000/xmlns/");
}

TEST(Handles, AFailureNamesTheOperationThePlaceAndWhatWasGiven) {
    HBLIDOM::Document document = newDocument();
    HBLIDOM::Element root = document.getDocumentElement();
    HBLIDOM::Document other = newDocument();
    using Failure = HBLIDOM::DOMException;
    expectDomFailure([&] { root.setAttribute("1 x", ""); }, Failure::INVALID_CHARACTER_ERR,
                     "Element::setAttribute on the element \"x:root\": INVALID_CHARACTER_ERR (5)");
    expectDomFailure([&] { document.createElementNS("", "p:a"); }, Failure::NAMESPACE_ERR,
                     "Document::createElementNS on the document: NAMESPACE_ERR (14)");
    expectDomFailure([&] { root.appendChild(other.createElementNS("", "a")); }, Failure::WRONG_DOCUMENT_ERR,
                     "Node::appendChild on the element \"x:root\": WRONG_DOCUMENT_ERR (4)");
    HBLIDOM::Node child = root.appendChild(document.createElementNS("", "b"));
    expectDomFailure([&] { child.appendChild(root); }, Failure::HIERARCHY_REQUEST_ERR,
                     "Node::appendChild on the element \"b\": HIERARCHY_REQUEST_ERR (3)");
    expectDomFailure([&] { document.importNode(other, 1); }, Failure::NOT_SUPPORTED_ERR,
                     "Document::importNode on the document: NOT_SUPPORTED_ERR (9)");
    expectDomFailure([&] { HBLIDOM::Attr{root}; }, Failure::INVALID_ACCESS_ERR,
                     "Attr::Attr on the element \"x:root\": INVALID_ACCESS_ERR (15), it is not an attribute");
    expectDomFailure([] { HBLIDOM::Node().getNodeName(); }, Failure::INVALID_ACCESS_ERR,
                     "Node::getNodeName on a null node: INVALID_ACCESS_ERR (15), there is no node");
    EXPECT_NE(HBLIDOM::Element(HBLIDOM::Node()).isNull(), 0);
}

TEST(Handles, ACopyInAnotherDocumentIsDeepOnlyWhenAsked) {
    const auto source = parsed("<a><b i='1'>x<c/><d><e/></d></b><f/></a>");
    HBLIDOM::Document target = HBLIDOM::DOMImplementation::getInstance().createDocument();
    const HBLIDOM::Node original = source.getDocumentElement().getFirstChild();
    const HBLIDOM::Node copy = target.importNode(original, 1);
    EXPECT_NE(copy.getParentNode().isNull(), 0);
    EXPECT_EQ(HBLIDOM::Helper::toString(copy), "<b i=\"1\">x<c/><d><e/></d></b>");
    EXPECT_EQ(HBLIDOM::Helper::toString(target.importNode(original, 0)), "<b i=\"1\"/>");
    target.appendChild(copy);
    EXPECT_EQ(target.getDocumentElement(), copy);
    EXPECT_EQ(original.getOwnerDocument(), source);
}

TEST(Handles, DepthCostsNoStack) {
    const auto document = nested(mrl::test::veryDeep);
    HBLIDOM::Document target = HBLIDOM::DOMImplementation::getInstance().createDocument();
    const HBLIDOM::Node copy = target.importNode(document.getDocumentElement(), 1);
    EXPECT_TRUE(HBLIDOM::Helper::toString(copy) == HBLIDOM::Helper::toString(document.getDocumentElement()));
    EXPECT_NE(HBLIDOM::Helper::findFirstElement(copy, "none").isNull(), 0);
}

TEST(Walker, SeesWhatItIsToSeeAndNeverLeavesItsRoot) {
    const auto document = parsed("<r><a>x<b/>y<c/></a>z<d/></r>");
    HBLIDOM::TreeWalker walker = document.createTreeWalker(document.getDocumentElement().getFirstChild());
    EXPECT_NE(walker.nextSibling().isNull(), 0);
    EXPECT_NE(walker.parentNode().isNull(), 0);
    EXPECT_EQ(walker.firstChild().getNodeName(), "b");
    EXPECT_NE(walker.firstChild().isNull(), 0);
    EXPECT_EQ(walker.nextSibling().getNodeName(), "c");
    EXPECT_NE(walker.nextSibling().isNull(), 0);
    EXPECT_EQ(walker.getCurrentNode().getNodeName(), "c");
    EXPECT_EQ(walker.parentNode(), walker.getRoot());
    HBLIDOM::TreeWalker texts(document.getDocumentElement(), HBLIDOM::TreeWalker::SHOW_TEXT);
    EXPECT_EQ(texts.firstChild().getNodeValue(), "z");
}

TEST(Helper, FindsElementsByWholeOrLocalNameInTheOrderOfTheDocument) {
    const auto document =
        parsed("<qzn:value xmlns:qzn='urn:q' xmlns:o='urn:o'><qzn:instances name='other'/>"
               "<o:instances name='p' id='1'/><qzn:instances name='p' id='2'><qzn:value>x</qzn:value>"
               "<value>y<![CDATA[<z>]]><deep>no</deep></value></qzn:instances></qzn:value>");
    using Helper = HBLIDOM::Helper;
    const HBLIDOM::Element root = document.getDocumentElement();
    EXPECT_EQ(Helper::findFirstElement(document, "qzn:value"), root);
    EXPECT_EQ(Helper::getElementText(Helper::findFirstElement(root, "value")), "x");
    EXPECT_EQ(Helper::findFirstElementNS(document, "urn:o", "instances").getAttribute("id"), "1");
    EXPECT_EQ(Helper::getElementText(Helper::findFirstElementNS(document, "", "value")), "y<z>");
    EXPECT_EQ(Helper::findElementWithAttribute(document, "qzn:instances", "name", "p").getAttribute("id"),
              "2");
    EXPECT_EQ(Helper::findElementWithAttribute(document, "instances", "name", "p").getAttribute("id"), "1");
    EXPECT_NE(Helper::findElementWithAttribute(document, "instances", "nothing", "").isNull(), 0);
    EXPECT_EQ(Helper::findChildElementWithText(document, "value", "y<z>").getNodeName(), "value");
    EXPECT_NE(Helper::findChildElementWithText(document, "value", "y").isNull(), 0);
    EXPECT_EQ(Helper::findChildElement(document, "qzn:value"), root);
    EXPECT_NE(Helper::findChildElement(root, "qzn:value").isNull(), 0);
    EXPECT_EQ(Helper::matchLocalName(root, "value") + Helper::matchLocalName(root, "qzn:value"), 1);
    EXPECT_EQ(Helper::matchNamespaceURI(root, "urn:q") + Helper::matchNamespaceURI(root, ""), 1);
}

TEST(Handles, RemoveChildrenAndFindElementsByNamespace) {
    const auto document = parsed("<a xmlns:p='urn:p'><b/><p:b i='1'/><c><p:b i='2'/></c></a>");
    HBLIDOM::Element root = document.getDocumentElement();
    const HBLIDOM::NodeList found = root.getElementsByTagNameNS("urn:p", "b");
    ASSERT_EQ(found.getLength(), 2U);
    EXPECT_EQ(HBLIDOM::Element(found.item(1)).getAttribute("i"), "2");
    EXPECT_EQ(root.getElementsByTagNameNS("", "b").getLength(), 1U);
    EXPECT_EQ(root.getElementsByTagNameNS("urn:p", "a").getLength(), 0U); // the root itself does not count

    EXPECT_EQ(root.removeChild(found.item(0)), found.item(0));
    EXPECT_EQ(found.item(0).getParentNode().isNull(), 1);
    EXPECT_EQ(root.getElementsByTagNameNS("urn:p", "b").getLength(), 1U);
    expectDomFailure([&] { root.removeChild(found.item(1)); }, HBLIDOM_DOMException::NOT_FOUND_ERR,
                     "Node::removeChild on the element \"a\"");
}

TEST(Handles, ElementsKnowTheirPlaceWhereTheParserKeepsIt) {
    const std::string text = "<a>\n <b\n i='1'/><c/></a>";
    HBLIDOM::Document document;
    ASSERT_EQ(HBLIDOM::Parser(HBLIDOM_Parser::eKeepPlaces).parse(text.data(), text.size(), document), 1);
    const HBLIDOM::Element root = document.getDocumentElement();
    EXPECT_EQ(root.getLineNumber(), 1);
    EXPECT_EQ(root.getColumnNumber(), 4);
    const HBLIDOM::Element b = HBLIDOM_Helper::findChildElement(root, "b");
    EXPECT_EQ(b.getLineNumber(), 3);
    EXPECT_EQ(b.getColumnNumber(), 9);
    EXPECT_EQ(HBLIDOM::Element(root.getLastChild()).getColumnNumber(), 13);
    EXPECT_EQ(parsed(text).getDocumentElement().getLineNumber(), 0);
}

} // namespace
