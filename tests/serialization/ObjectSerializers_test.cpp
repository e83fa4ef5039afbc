// Values and objects as text, as events and as DOM elements, against files worked out by hand.
#include "Toolkit/MRLAccount.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBaseClassArrayProp.h"
#include "Toolkit/MRLClassEnum.h"
#include "Toolkit/MRLDecimalProp.h"
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
#include "support/Table.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <map>
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

/// A value, and whether absent members of it are written as nil elements.
struct Value {
    Type::ObjectType type;
    void* value;
    int writeNulls = 0;
};

std::string soap(const Value& row, int writeNamespaces) {
    return mrl::test::written([&](PLQOutputStream& out) {
        MRLSOAPSerializer writer;
        writer.setWriteNamespaces(writeNamespaces);
        writer.setWriteNulls(row.writeNulls);
        writer.serialize(row.value, row.type, "v", out);
    });
}

/// The events of a value, without the declarations, which have to stand on the first element alone.
std::string events(const Value& row) {
    Notes notes;
    MRLSAXObjectSerializer serializer;
    serializer.setWriteNulls(row.writeNulls);
    serializer.serialize(row.value, row.type, "v", &notes);
    if (!notes.all.empty()) {
        EXPECT_THAT(notes.all, StartsWith("(bus:v" + declarations));
        notes.all.erase(6, declarations.size());
    }
    EXPECT_THAT(notes.all, Not(HasSubstr("xmlns")));
    return notes.all;
}

HBLIDOM::Document newDocument() {
    return HBLIDOM::DOMImplementation::getInstance().createDocument();
}

/// The element as XML, without the declarations.
std::string dom(const Value& row) {
    HBLIDOM::Document document = newDocument();
    const HBLIDOM::Element root = MRLDOMObjectSerializer().serialize(row.value, row.type, "v", document);
    if (root.isNull() != 0) {
        return {};
    }
    EXPECT_NE(HBLIDOM::Helper::matchNamespaceURI(root, "http://developer.vantor.example/schemas/tavel/3/"),
              0);
    const HBLIDOM::Element item = HBLIDOM::Helper::findFirstElement(root, "item");
    EXPECT_TRUE(item.isNull() != 0 || item.getNamespaceURI().empty());
    std::string xml = HBLIDOM::Helper::toString(root);
    for (const char* const name : {"xs", "xsi", "SOAP-ENC", "bus"}) {
        const std::string declaration = std::string(" xmlns:") + name + "=\"";
        const std::size_t begin = xml.find(declaration);
        EXPECT_LT(begin, xml.find('>')) << name;
        xml.erase(begin, xml.find('"', begin + declaration.size()) + 1 - begin);
    }
    EXPECT_THAT(xml, Not(HasSubstr("xmlns")));
    return xml + "\n";
}

/// A class without children.
struct Childless : MRLNameValue {
    void getChildObjectNames(std::vector<const char*>&, bool) const override {}
};

/// The values of golden/forms, by the names of their files.
std::map<std::string, Value> valuesWithForms(MRLObjectRegistryI& registry) {
    static int negative = -2147483647 - 1;
    static int two = 2;
    static int zero = 0;
    static double half = 1.5;
    static double third = -1.0 / 3;
    static double vast = 1e300;
    static MRLBase64Binary binary("\x01\xFE", 2);
    static MRLBase64Binary attached;
    static MRL_CharStreamable streamed;
    static MRL_CharStreamable rest;
    static MRL_CharStreamable reference;
    attached.reference("part2", 0);
    attached.setIsContentId(1);
    streamed.initialize("a<", 0);
    rest.initialize("b", 0);
    streamed.append(rest);
    reference.initialize("part&1", 0);
    reference.setIsContentId(1);
    std::map<std::string, Value> rows = {{"Text", {Type::eString, text("<&>\u00e4")}},
                                         {"TextEmpty", {Type::eString, text("")}},
                                         {"TextBroken", {Type::eString, text("a\xC3")}},
                                         {"TextStreamed", {Type::eString, text(streamed.asCharStar())}},
                                         {"TextAttached", {Type::eString, text(reference.asCharStar())}},
                                         {"TextNull", {Type::eString, nullptr}},
                                         {"TextNullTold", {Type::eString, nullptr, 1}},
                                         {"Int", {Type::eInt, &negative}},
                                         {"Integer", {Type::eInteger, &two}},
                                         {"Decimal", {Type::eDecimal, &half}},
                                         {"DecimalVast", {Type::eDecimal, &vast}},
                                         {"Float", {Type::eFloat, &third}},
                                         {"DateTime", {Type::eDateTime, text("2024-01-01T00:00:00Z")}},
                                         {"QName", {Type::eQName, text("a:b")}},
                                         {"True", {Type::eBoolean, &two}},
                                         {"False", {Type::eBoolean, &zero}},
                                         {"Base64", {Type::eBase64Binary, &binary}},
                                         {"Base64Attached", {Type::eBase64Binary, &attached}},
                                         {"Time", {Type::eTime, text("x")}},
                                         {"AnyType", {Type::eAnyType, text("x")}},
                                         {"Streamable", {Type::eCharStreamable, text(streamed.asCharStar())}},
                                         {"ClassNull", {Type::eMRLReport, nullptr}},
                                         {"ArrayNull", {Type::eMRLStringArray, nullptr}}};
    const auto object = [&]<class T>(const char* name, T* made, int writeNulls = 0) {
        registry.registerPointer(made);
        rows[name] = {made->getObjectType(), static_cast<Type*>(made), writeNulls};
        return made;
    };
    object("ArrayEmpty", new MRLStringArray);
    auto* const array = object("Array", new MRLStringArray);
    array->push_back("a");
    array->push_back("b");
    object("ClassChildless", new Childless);
    object("Class", new MRLNameValue)->setName("n");
    object("ClassWithNulls", new MRLNameValue, 1)->setName("n");
    auto* const account = new MRLAccount;
    registry.registerPointer(account);
    account->getSearchPath(&registry)->setValue("/x");
    object("ClassDerived", new MRLFolder)->getOwner(&registry)->getValue().push_back(account);
    object("DecimalMember", new MRLDecimalProp)->setValue(0.1F);
    object("Enum", new MRLClassEnum)->setValue("folder");
    const auto ownText = [&](const char* name, const MRL_CharStreamable& characters) {
        Type* const made = object(name, new MRLXmlEncodedXML);
        made->setChildObject("", text(characters.asCharStar()), Type::eCharStreamable, nullptr);
    };
    ownText("OwnText", streamed);
    ownText("OwnTextAttached", reference);
    object("OwnTextNull", new MRLXmlEncodedXML);
    return rows;
}

/// Each file has a section for each way of writing: what comes out, or the assertion that refuses it.
TEST(ObjectSerializers, EachValueHasItsExactFormInEachWayOfWriting) {
    const HBLSmartPointer<MRLObjectRegistryI> registry = MRLObjectRegistryFactory::getInstance().create();
    const auto rows = valuesWithForms(*registry);
    std::size_t files = 0;
    for (const auto& file : std::filesystem::directory_iterator(MRL_TEST_DATA "/golden/forms")) {
        const std::string name = file.path().stem();
        ASSERT_TRUE(rows.contains(name)) << name;
        const Value& row = rows.at(name);
        for (std::string section :
             mrl::test::split("\n" + mrl::test::golden("forms/" + name + ".txt"), "\n# ")) {
            section += section.ends_with('\n') ? "" : "\n";
            const std::size_t end = section.find('\n');
            const std::string way = section.substr(0, end);
            std::string form;
            try {
                form = way == "soap"     ? soap(row, 0)
                       : way == "alone"  ? soap(row, 1)
                       : way == "events" ? events(row)
                       : way == "dom"    ? dom(row)
                                         : "";
            } catch (HBLAssertError& e) {
                form = e.getText() + std::string("\n");
            }
            EXPECT_EQ(form, section.substr(end + 1)) << name << " as " << way;
        }
        ++files;
    }
    EXPECT_EQ(files, rows.size());
}

TEST(ObjectSerializers, ANameADocumentAndASinkAreRequired) {
    MRLSAXObjectSerializer sax;
    Notes notes;
    HBLIDOM::Document none;
    expectAssert([&] { sax.serialize(text("x"), Type::eString, "v", nullptr); }, "HBL_ASSERT(m_saxParser);");
    expectAssert([&] { sax.serialize(text("x"), Type::eString, nullptr, &notes); }, "HBL_ASSERT(name);");
    expectAssert([&] { MRLDOMObjectSerializer().serialize(text("x"), Type::eString, "v", none); },
                 "HBL_ASSERT(!ownerDoc.isNull());");
}

TEST(ObjectSerializers, ASinkThatThrowsEndsTheWalk) {
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
