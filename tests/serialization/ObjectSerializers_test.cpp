// Objects as events and as DOM elements, beside the text form; and back from DOM elements.
#include "Toolkit/MRLAccount.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBaseClassArrayProp.h"
#include "Toolkit/MRLFolder.h"
#include "Toolkit/MRLNameValue.h"
#include "Toolkit/MRLObjectRegistryFactory.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLXmlEncodedXML.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "serialization/Envelopes.h"
#include "serialization/MRLDOMObjectSerializer.h"
#include "serialization/MRLSAXEventSinkI.h"
#include "serialization/MRLSAXObjectSerializer.h"
#include "serialization/MRLSOAPSerializer.h"
#include "support/Failure.h"

#include <gmock/gmock.h>

#include <stdexcept>

using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;
using Type = MRLSchemaTypeI;

namespace {

const std::string declarations = " xmlns:xs=http://www.w3.org/2001/XMLSchema"
                                 " xmlns:xsi=http://www.w3.org/2001/XMLSchema-instance"
                                 " xmlns:SOAP-ENC=http://schemas.xmlsoap.org/soap/encoding/"
                                 " xmlns:bus=http://developer.vantor.example/schemas/tavel/3/";

class ObjectSerializers : public testing::Test {
protected:
    template <class T>
    T* made() {
        T* const object = new T();
        m_registry->registerPointer(object);
        return object;
    }
    MRLObjectRegistryI* registry() { return m_registry.get(); }

    HBLSmartPointer<MRLObjectRegistryI> m_registry = MRLObjectRegistryFactory::getInstance().create();
};

/// Notes the events as "(name attribute=value", "'text'" and ")name".
struct Notes : MRLSAXEventSinkI {
    void startElement(const char* name, const char* const* attributes) override {
        all += std::string("(") + name;
        for (; *attributes != nullptr; attributes += 2) {
            all += std::string(" ") + attributes[0] + "=" + attributes[1];
        }
        all += "\n";
    }
    void endElement(const char* name) override { all += std::string(")") + name + "\n"; }
    void characters(const char* text, std::int32_t length) override {
        all += "'" + std::string(text, static_cast<std::size_t>(length)) + "'\n";
    }
    std::string all;
};

void* text(const char* characters) {
    return const_cast<char*>(characters);
}

/// The events of a value, without the declarations, which have to stand on the first element alone.
std::string events(void* value, Type::ObjectType type, int writeNulls = 0) {
    Notes notes;
    MRLSAXObjectSerializer serializer;
    serializer.setWriteNulls(writeNulls);
    serializer.serialize(value, type, "v", &notes);
    if (!notes.all.empty()) {
        EXPECT_THAT(notes.all, StartsWith("(bus:v" + declarations));
        notes.all.erase(6, declarations.size());
    }
    EXPECT_THAT(notes.all, Not(HasSubstr("xmlns")));
    return notes.all;
}

std::string events(Type& object, int writeNulls = 0) {
    return events(&object, object.getObjectType(), writeNulls);
}

HBLIDOM::Document newDocument() {
    return HBLIDOM::DOMImplementation::getInstance().createDocument();
}

HBLIDOM::Element element(void* value, Type::ObjectType type) {
    HBLIDOM::Document document = newDocument();
    return MRLDOMObjectSerializer().serialize(value, type, "v", document);
}

/// The element as XML, without the declarations.
std::string dom(void* value, Type::ObjectType type) {
    const HBLIDOM::Element root = element(value, type);
    if (root.isNull() != 0) {
        return {};
    }
    EXPECT_NE(HBLIDOM::Helper::matchNamespaceURI(root, "http://developer.vantor.example/schemas/tavel/3/"),
              0);
    std::string xml = HBLIDOM::Helper::toString(root);
    for (const char* const name : {"xs", "xsi", "SOAP-ENC", "bus"}) {
        const std::string declaration = std::string(" xmlns:") + name + "=\"";
        const std::size_t begin = xml.find(declaration);
        EXPECT_LT(begin, xml.find('>')) << name;
        xml.erase(begin, xml.find('"', begin + declaration.size()) + 1 - begin);
    }
    EXPECT_THAT(xml, Not(HasSubstr("xmlns")));
    return xml;
}

std::string dom(Type& object) {
    return dom(&object, object.getObjectType());
}

std::string soap(void* value, Type::ObjectType type) {
    return mrl::test::written([&](PLQOutputStream& out) {
        MRLSOAPSerializer writer;
        writer.setWriteNamespaces(0);
        writer.serialize(value, type, "v", out);
    });
}

/// A class without children.
struct Childless : MRLNameValue {
    void getChildObjectNames(std::vector<const char*>&, bool) const override {}
};

TEST_F(ObjectSerializers, TheThreeFormsDifferInWhatIsNotThere) {
    EXPECT_EQ(soap(nullptr, Type::eString), "<v xsi:type=\"xs:string\" xsi:nil=\"true\"/>\n");
    EXPECT_EQ(events(nullptr, Type::eString), "");
    EXPECT_EQ(events(nullptr, Type::eString, 1), "(bus:v xsi:type=xs:string xsi:nil=true\n)bus:v\n");
    EXPECT_NE(element(nullptr, Type::eString).isNull(), 0);

    const Type::ObjectType array = Type::eMRLStringArray;
    EXPECT_EQ(soap(nullptr, array), "<v xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"xs:string[]\"/>\n");
    expectAssert([&] { events(nullptr, array); }, "HBL_ASSERT(generatedArrayObj);");
    EXPECT_EQ(dom(nullptr, array), "<bus:v SOAP-ENC:arrayType=\"xs:string[]\" xsi:type=\"SOAP-ENC:Array\"/>");

    MRLStringArray empty;
    Type& emptyArray = empty;
    EXPECT_EQ(soap(&emptyArray, array),
              "<v xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"xs:string[0]\"/>\n");
    EXPECT_EQ(events(emptyArray), "");
    EXPECT_EQ(dom(emptyArray), "<bus:v SOAP-ENC:arrayType=\"xs:string[0]\" xsi:type=\"SOAP-ENC:Array\"/>");

    Childless childless;
    EXPECT_EQ(soap(&childless, Type::eMRLNameValue), "<v xsi:type=\"bus:nameValue\"/>\n");
    EXPECT_EQ(events(childless), "(bus:v xsi:type=bus:nameValue\n)bus:v\n");
    EXPECT_EQ(dom(childless), "<bus:v xsi:type=\"bus:nameValue\"/>");

    MRLNameValue half;
    half.setName("n");
    EXPECT_EQ(events(half), "(bus:v xsi:type=bus:nameValue\n(bus:name xsi:type=xs:string\n'n'\n)bus:name\n"
                            ")bus:v\n");
    EXPECT_EQ(events(half, 1), "(bus:v xsi:type=bus:nameValue\n(bus:name xsi:type=xs:string\n'n'\n)bus:name\n"
                               "(bus:value xsi:type=xs:string xsi:nil=true\n)bus:value\n)bus:v\n");
    EXPECT_EQ(dom(half),
              "<bus:v xsi:type=\"bus:nameValue\"><bus:name xsi:type=\"xs:string\">n</bus:name></bus:v>");
}

struct Value {
    const char* name;
    Type::ObjectType type;
    void* value;
    const char* xsiType;
    const char* expected;
};

class ToldValue : public testing::TestWithParam<Value> {};

int negative = -2147483647 - 1;
int two = 2;
int zero = 0;
double half = 1.5;
double huge = 1e300;
MRLBase64Binary binary("\x01\xFE", 2);

INSTANTIATE_TEST_SUITE_P(
    ObjectSerializers, ToldValue,
    testing::Values(Value{"TextWithoutEscapes", Type::eString, text("<&>\u00e4"), "xs:string", "<&>\u00e4"},
                    Value{"Int", Type::eInt, &negative, "xs:int", "-2147483648"},
                    Value{"Integer", Type::eInteger, &two, "xs:integer", "2"},
                    Value{"Decimal", Type::eDecimal, &half, "xs:decimal", "1.50 "},
                    Value{"Float", Type::eFloat, &half, "xs:float", "1.50 "},
                    Value{"DateTime", Type::eDateTime, text("2024-01-01"), "xs:dateTime", "2024-01-01"},
                    Value{"QName", Type::eQName, text("a:b"), "xs:QName", "a:b"},
                    Value{"True", Type::eBoolean, &two, "xs:boolean", "true"},
                    Value{"False", Type::eBoolean, &zero, "xs:boolean", "false"},
                    Value{"Base64", Type::eBase64Binary, &binary, "xs:base64Binary", "Af4="}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_P(ToldValue, HasTheSameTextInBothForms) {
    const Value& row = GetParam();
    EXPECT_EQ(events(row.value, row.type),
              std::string("(bus:v xsi:type=") + row.xsiType + "\n'" + row.expected + "'\n)bus:v\n");
    const HBLIDOM::Element made = element(row.value, row.type);
    EXPECT_EQ(HBLIDOM::Helper::getElementText(made), row.expected);
    EXPECT_EQ(made.getAttributeNS("http://www.w3.org/2001/XMLSchema-instance", "type"), row.xsiType);
}

TEST_F(ObjectSerializers, AnEmptyTextIsAnElementWithoutCharactersAndAVastNumberIsWhole) {
    EXPECT_EQ(events(text(""), Type::eString), "(bus:v xsi:type=xs:string\n)bus:v\n");
    EXPECT_EQ(dom(text(""), Type::eString), "<bus:v xsi:type=\"xs:string\"/>");
    EXPECT_EQ(HBLIDOM::Helper::getElementText(element(&huge, Type::eDecimal)).length(), 301U + 3 + 1);
}

TEST_F(ObjectSerializers, WhatHasNoFormIsRefused) {
    const std::string refusal = "HBL_ASSERT_NAMED(isGeneratedType, \"Only generated object types can be "
                                "serialized at this point.\");";
    for (const auto type : {Type::eTime, Type::eAnyType}) {
        expectAssert([&] { events(text("x"), type); }, refusal);
        expectAssert([&] { dom(text("x"), type); }, refusal);
    }
    MRLSAXObjectSerializer sax;
    Notes notes;
    HBLIDOM::Document none;
    expectAssert([&] { sax.serialize(text("x"), Type::eString, "v", nullptr); }, "HBL_ASSERT(m_saxParser);");
    expectAssert([&] { sax.serialize(text("x"), Type::eString, nullptr, &notes); }, "HBL_ASSERT(name);");
    expectAssert([&] { MRLDOMObjectSerializer().serialize(text("x"), Type::eString, "v", none); },
                 "HBL_ASSERT(!ownerDoc.isNull());");
}

TEST_F(ObjectSerializers, ItemsStandWithoutPrefixAndDerivedClassesUnderTheirOwnType) {
    MRLFolder folder;
    auto* const account = made<MRLAccount>();
    account->getSearchPath(registry())->setValue("/x");
    folder.getOwner(registry())->getValue().push_back(account);
    EXPECT_EQ(events(folder), "(bus:v xsi:type=bus:folder\n(bus:owner xsi:type=bus:baseClassArrayProp\n"
                              "(bus:value xsi:type=SOAP-ENC:Array SOAP-ENC:arrayType=bus:baseClass[1]\n"
                              "(item xsi:type=bus:account\n(bus:searchPath xsi:type=bus:stringProp\n"
                              "(bus:value xsi:type=xs:string\n'/x'\n)bus:value\n)bus:searchPath\n)item\n"
                              ")bus:value\n)bus:owner\n)bus:v\n");
    const HBLIDOM::Element item =
        HBLIDOM::Helper::findFirstElement(element(&folder, Type::eMRLFolder), "item");
    EXPECT_EQ(item.getNamespaceURI(), "");
    EXPECT_EQ(item.getAttribute("xsi:type"), "bus:account");
    MRLStringArray strings;
    strings.push_back("a");
    Type& array = strings;
    EXPECT_EQ(events(array), "(bus:v xsi:type=SOAP-ENC:Array SOAP-ENC:arrayType=xs:string[1]\n"
                             "(item xsi:type=xs:string\n'a'\n)item\n)bus:v\n");
}

TEST_F(ObjectSerializers, ContentIdsAreOneAttributeAndNoCharactersInEachOfTheirThreePlaces) {
    MRL_CharStreamable reference;
    reference.initialize("part&1", 0);
    reference.setIsContentId(1);
    EXPECT_EQ(events(text(reference.asCharStar()), Type::eString),
              "(bus:v xsi:type=xs:string href=cid:part&1\n)bus:v\n");
    MRLBase64Binary attached;
    attached.reference("part2", 0);
    attached.setIsContentId(1);
    EXPECT_EQ(events(&attached, Type::eBase64Binary),
              "(bus:v xsi:type=xs:base64Binary href=cid:part2\n)bus:v\n");
    MRLXmlEncodedXML document;
    Type& object = document;
    object.setChildObject("", text(reference.asCharStar()), Type::eCharStreamable, nullptr);
    EXPECT_EQ(events(object), "(bus:v xsi:type=bus:xmlEncodedXML href=cid:part&1\n)bus:v\n");
    EXPECT_EQ(dom(object), "<bus:v href=\"cid:part&amp;1\" xsi:type=\"bus:xmlEncodedXML\"/>");
}

TEST_F(ObjectSerializers, TextThatStreamsItselfComesInOnePiece) {
    const std::string large(5000, 'x');
    MRL_CharStreamable first;
    MRL_CharStreamable second;
    first.initialize("a<", 0);
    second.initialize(large.c_str(), 0);
    first.append(second);
    MRLXmlEncodedXML document;
    Type& object = document;
    object.setChildObject("", text(first.asCharStar()), Type::eCharStreamable, nullptr);
    EXPECT_EQ(events(object), "(bus:v xsi:type=bus:xmlEncodedXML\n'a<" + large + "'\n)bus:v\n");
    EXPECT_EQ(HBLIDOM::Helper::getElementText(element(&object, object.getObjectType())),
              I18NString("a<" + large));
    MRLXmlEncodedXML none;
    EXPECT_EQ(events(none), "(bus:v xsi:type=bus:xmlEncodedXML\n)bus:v\n");
}

TEST_F(ObjectSerializers, ASinkThatThrowsEndsTheWalk) {
    struct Full : Notes {
        void characters(const char*, std::int32_t) override { throw std::length_error("full"); }
    } sink;
    MRLNameValue object;
    object.setName("n");
    EXPECT_THROW(MRLSAXObjectSerializer().serialize(&object, object.getObjectType(), "v", &sink),
                 std::length_error);
    EXPECT_THAT(sink.all, testing::EndsWith("(bus:name xsi:type=xs:string\n"));
}

} // namespace
