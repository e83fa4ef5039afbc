// Objects from DOM elements.
#include "Common/MRLMessageNumbers.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBaseClassArrayProp.h"
#include "Toolkit/MRLFolder.h"
#include "Toolkit/MRLNameValue.h"
#include "Toolkit/MRLObjectRegistryFactory.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "serialization/MRLDOMObjectDeserializer.h"
#include "serialization/MRLDOMObjectSerializer.h"
#include "serialization/MRLDOMToSAXAttributesImpl.h"
#include "support/Failure.h"
#include "support/Xml.h"

#include "HBLCore/HBLSmartPointer.h"

#include <gtest/gtest.h>

using mrl::test::parsed;
using Type = MRLSchemaTypeI;

namespace {

class DomDeserializer : public testing::Test {
protected:
    /// An element "r" with other prefixes than the toolkit's own.
    HBLIDOM::Element root(const std::string& attributes, const std::string& content) {
        return parsed("<r xmlns:b='http://developer.vantor.example/schemas/tavel/3/'"
                      " xmlns:i='http://www.w3.org/2001/XMLSchema-instance'"
                      " xmlns:e='http://schemas.xmlsoap.org/soap/encoding/'"
                      " xmlns:x='http://www.w3.org/2001/XMLSchema' " +
                      attributes + ">" + content + "</r>")
            .getDocumentElement();
    }

    Type* read(const HBLIDOM::Node& node, Type::ObjectType expected = Type::e_Unknown) {
        return MRLDOMObjectDeserializer().deserialize(node, *m_registry, expected);
    }
    template <class T>
    T* readAs(const HBLIDOM::Node& node, Type::ObjectType expected = Type::e_Unknown) {
        return dynamic_cast<T*>(read(node, expected));
    }

    MRLObjectRegistryI* registry() { return m_registry.get(); }

    HBLSmartPointer<MRLObjectRegistryI> m_registry = MRLObjectRegistryFactory::getInstance().create();
};

TEST_F(DomDeserializer, ReadsByTheTypeOfTheElementWhateverItsPrefixesWithoutCommentsAndCdata) {
    const auto* const pair = readAs<MRLNameValue>(root(
        "i:type='b:nameValue'", "<!--c--><name i:type='x:string'>a<!--c--><![CDATA[no]]>b<?pi no?></name>"
                                "<q:value xmlns:q='urn:q' xmlns:s='http://www.w3.org/2001/XMLSchema'"
                                " i:type='s:string'>&lt;</q:value>ignored"));
    ASSERT_NE(pair, nullptr);
    EXPECT_STREQ(pair->getName(), "ab");
    EXPECT_STREQ(pair->getValue(), "<");
}

TEST_F(DomDeserializer, NilAttachedAndUnknownElementsAreReadAsInAMessage) {
    const auto* const pair = readAs<MRLNameValue>(
        root("i:type='b:nameValue'", "<unknown><name>deep</name></unknown><name i:nil='true'/>"
                                     "<value>v</value>"));
    ASSERT_NE(pair, nullptr);
    EXPECT_EQ(pair->getName(), nullptr);
    EXPECT_STREQ(pair->getValue(), "v");
    EXPECT_EQ(read(root("i:type='b:nameValue' i:nil='true'", "")), nullptr);
}

TEST_F(DomDeserializer, AnElementWithoutATypeTakesTheExpectedOneAndOneWithItHasToFit) {
    EXPECT_NE(readAs<MRLNameValue>(root("", "<name>n</name>"), Type::eMRLNameValue), nullptr);
    EXPECT_NE(readAs<MRLFolder>(root("i:type='b:folder'", ""), Type::eMRLBaseClass), nullptr);
    expectFailure([&] { read(root("i:type='b:nameValue'", ""), Type::eMRLBaseClass); }, msg::notDerivedFrom,
                  {"bus:nameValue", "bus:baseClass", "r"});
}

TEST_F(DomDeserializer, WhatIsNoObjectIsRefused) {
    expectAssert([&] { read({}); }, "HBL_ASSERT(!domIn.isNull());");
    expectAssert([&] { read(root("", "<name/>")); }, "HBL_ASSERT(m_objStack.size() > 0);");
    const std::string onlyClasses =
        "HBL_ASSERT_NAMED(MRLSchemaTypesFactory::isGeneratedType(handler.getObjectType()), "
        "\"Only generated classes can be deserialized.\");";
    expectAssert([&] { read(root("i:type='x:string'", "text")); }, onlyClasses);
    expectFailure([&] { read(root("i:type='b:nameValue'", "<name>a</name><name>b</name>")); },
                  msg::repeatedMember, {"r", "name"});
    expectFailure([&] { read(root("i:type='b:nameValue'", "<name i:nil='true'> </name>")); }, msg::textInNil,
                  {"name"});
    expectFailure([&] { read(root("i:type='b:queryOptions'", "<maxObjects>many</maxObjects>")); },
                  msg::invalidNumber, {"maxObjects", "int"});
}

TEST_F(DomDeserializer, ADocumentMadeWithoutNamespacesIsReadByItsWholeNames) {
    HBLIDOM::Document document = HBLIDOM::DOMImplementation::getInstance().createDocument("", "r");
    HBLIDOM::Node name = document.getDocumentElement().appendChild(document.createElementNS("", "name"));
    name.appendChild(document.createTextNode("n"));
    document.getDocumentElement().setAttribute("i:type", "b:folder"); // has no namespace: no type
    const auto* const pair = readAs<MRLNameValue>(document.getDocumentElement(), Type::eMRLNameValue);
    ASSERT_NE(pair, nullptr);
    EXPECT_STREQ(pair->getName(), "n");
}

TEST_F(DomDeserializer, AnObjectSurvivesTheWayThroughADocument) {
    MRLTavelHeader header;
    MRLZOR& zor = *header.getZOR(registry());
    zor.getZORPassport(registry())->setId("MTAx");
    zor.getRoles().push_back("authors");
    zor.getRoles().push_back("R&D \u00e4");
    zor.getSecurityBlob(registry())->append("\x00\xFF", 2);
    const auto built = [](Type& object) {
        HBLIDOM::Document document = HBLIDOM::DOMImplementation::getInstance().createDocument();
        return document.appendChild(
            MRLDOMObjectSerializer().serialize(&object, object.getObjectType(), "tavelHeader", document));
    };
    const HBLIDOM::Node first = built(header);
    auto* const again = readAs<MRLTavelHeader>(first);
    ASSERT_NE(again, nullptr);
    EXPECT_STREQ(again->getZOR()->getZORPassport()->getId(), "MTAx");
    const std::string xml = HBLIDOM::Helper::toString(first);
    EXPECT_EQ(HBLIDOM::Helper::toString(built(*again)), xml);
    EXPECT_EQ(HBLIDOM::Helper::toString(built(*read(parsed(xml).getDocumentElement()))), xml);
}

/// Owners within owners: neither way costs stack.
TEST_F(DomDeserializer, DepthCostsNoStackInEitherDirection) {
    constexpr int depth = 12'500; // of objects; each is four elements
    auto* innermost = new MRLFolder();
    m_registry->registerPointer(innermost);
    MRLFolder* outermost = innermost;
    for (int level = 1; level < depth; ++level) {
        auto* const owned = new MRLFolder();
        m_registry->registerPointer(owned);
        owned->getOwner(registry())->getValue().push_back(outermost);
        outermost = owned;
    }
    HBLIDOM::Document document = HBLIDOM::DOMImplementation::getInstance().createDocument();
    const HBLIDOM::Element built =
        MRLDOMObjectSerializer().serialize(outermost, Type::eMRLFolder, "v", document);
    auto* folder = readAs<MRLFolder>(built);
    int levels = 0;
    for (; folder != nullptr; ++levels) {
        MRLBaseClassArrayProp* const owner = folder->getOwner();
        folder = owner == nullptr ? nullptr : static_cast<MRLFolder*>(owner->getValue().at(0));
    }
    EXPECT_EQ(levels, depth);
}

TEST_F(DomDeserializer, AttributesLookLikeThoseOfTheParser) {
    const HBLIDOM::Element element = parsed("<a xmlns:p='urn:p' p:i='1' j=''/>").getDocumentElement();
    const MRLDOMToSAXAttributesImpl attributes(element.getAttributes());
    ASSERT_EQ(attributes.getLength(), 3U);
    const int i = attributes.getIndex(u"urn:p", u"i");
    ASSERT_GE(i, 0);
    EXPECT_EQ(std::u16string(attributes.getQName(static_cast<XMLSize_t>(i))), u"p:i");
    EXPECT_EQ(attributes.getIndex(u"p:i"), i);
    EXPECT_EQ(std::u16string(attributes.getValue(u"urn:p", u"i")), u"1");
    EXPECT_EQ(std::u16string(attributes.getValue(u"j")), u"");
    EXPECT_EQ(std::u16string(attributes.getURI(static_cast<XMLSize_t>(attributes.getIndex(u"j")))), u"");
    EXPECT_EQ(std::u16string(attributes.getType(u"none")), u"CDATA");
    EXPECT_EQ(attributes.getIndex(u"", u"i"), -1);
    EXPECT_EQ(attributes.getValue(u"none"), nullptr);
    XMLSize_t index = 7;
    EXPECT_FALSE(attributes.getIndex(u"urn:p", u"none", index));
    EXPECT_TRUE(attributes.getIndex(u"p:i", index));
    EXPECT_EQ(index, static_cast<XMLSize_t>(i));
}

} // namespace
