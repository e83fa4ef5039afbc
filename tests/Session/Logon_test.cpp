#include "Common/MRLException.h"
#include "Session/MRLHelper.h"
#include "Toolkit/MRLDispatcherTransportVar.h"
#include "Toolkit/MRLDispatcherTransportVarArray.h"
#include "Toolkit/MRLFormFieldVar.h"
#include "Toolkit/MRLFormFieldVarArray.h"
#include "Toolkit/MRLHdrSession.h"
#include "Toolkit/MRLObjectRegistryFactory.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"
#include "support/FakeBus.h"
#include "support/Files.h"
#include "support/KeyStore.h"
#include "support/Table.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/I18NString.h"
#include "ZORCrypto/HBLZORCookie.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <vector>

namespace {

using mrl::test::FakeBus;

/// A reply with that in its header.
std::string reply(const std::string& header) {
    return "<e:Envelope xmlns:e=\"http://schemas.xmlsoap.org/soap/envelope/\" "
           "xmlns:b=\"http://developer.vantor.example/schemas/tavel/3/\" "
           "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
           "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\"><e:Header>" +
           header + "</e:Header><e:Body/></e:Envelope>";
}

const std::string PASSPORT = "<b:tavelHeader xsi:type=\"b:tavelHeader\"><b:ZOR xsi:type=\"b:ZOR\">"
                             "<b:ZORPassport xsi:type=\"b:ZORPassport\"><b:id xsi:type=\"xsd:string\">101:abc"
                             "</b:id></b:ZORPassport></b:ZOR></b:tavelHeader>";

HBLSmartPointer<MRLObjectRegistryI> registry() {
    return HBLSmartPointer<MRLObjectRegistryI>(MRLObjectRegistryFactory::getInstance().create());
}

TEST(AnonymousLogon, TakesThePassportFromTheReply) {
    const std::string request = mrl::test::golden("logon_request.xml");
    for (const auto& row : mrl::test::table("logon.txt")) { // header of the reply, form, passport or failure
        FakeBus bus;
        bus.answer(reply(row[0] == "*" ? PASSPORT : row[0]));
        std::string passport = "before";
        const auto logon = [&] { MRLHelper::logonAsAnonymous(passport, std::stoi(row[1]), "http://d"); };
        if (row[2].starts_with("HBL_ASSERT")) {
            expectAssert(logon, row[2]);
            EXPECT_EQ(passport, "before");
        } else {
            logon();
            EXPECT_EQ(passport, row[2]);
        }
        EXPECT_EQ(bus.requests, std::vector<std::string>{request});
        EXPECT_EQ(bus.live, 0);
        EXPECT_TRUE(std::ranges::count(
            bus.calls, "openEnvelope http://developer.vantor.example/schemas/tavel/3#contentManagerService"));
    }
}

TEST(AnonymousLogon, GoesToTheConfiguredDispatcherWithoutOneOfItsOwn) {
    for (const char* uri : {static_cast<const char*>(nullptr), ""}) {
        const ConfigurationFile file(
            ConfigurationFile::withParameters(ConfigurationFile::parameter("sdk", "http://configured")));
        FakeBus bus;
        bus.answer(reply(PASSPORT));
        std::string passport;
        MRLHelper::logonAsAnonymous(passport, 0, uri);
        EXPECT_NE(bus.calls.front().find("http://configured"), std::string::npos) << bus.calls.front();
    }
}

TEST(AnonymousLogon, GivesTheHeaderOfTheReply) {
    FakeBus bus;
    bus.answer(reply(PASSPORT));
    bus.answer(reply(""));
    bus.answer(reply("<b:tavelHeader xsi:type=\"b:ZOR\"/>"));
    bus.answer("not XML");
    const auto objects = registry();
    const MRLTavelHeader* const header = MRLHelper::getMRLTavelHeaderForAnonymous(objects.get(), "http://d");
    ASSERT_NE(header, nullptr);
    EXPECT_STREQ(MRLHelper::getPassport(header), "101:abc");
    expectAssert([&] { MRLHelper::getMRLTavelHeaderForAnonymous(objects.get(), "http://d"); },
                 R"(HBL_ASSERT_NAMED(!tavelHeaderEle.isNull(), "No tavelHeader element was returned.");)");
    EXPECT_EQ(MRLHelper::getMRLTavelHeaderForAnonymous(objects.get(), "http://d"), nullptr);
    expectFailure([&] { MRLHelper::getMRLTavelHeaderForAnonymous(objects.get(), "http://d"); },
                  msg::malformedXmlDocument, {"1", "1"});
}

const std::string DECLARATIONS = " xmlns:b=\"http://developer.vantor.example/schemas/tavel/3/\" "
                                 "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                 "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" xsi:type=";

TEST(Headers, ComeFromTexts) {
    const auto objects = registry();
    std::string text = PASSPORT;
    text.replace(text.find(" xsi:type="), 10, DECLARATIONS);
    EXPECT_STREQ(MRLHelper::getPassport(MRLHelper::getMRLTavelHeaderFromString(text.c_str(), objects.get())),
                 "101:abc");
    text = "<x" + DECLARATIONS + "\"b:ZOR\"/>";
    EXPECT_EQ(MRLHelper::getMRLTavelHeaderFromString(text.c_str(), objects.get()), nullptr);
    expectAssert([&] { MRLHelper::getMRLTavelHeaderFromString(nullptr, objects.get()); },
                 "HBL_ASSERT(tavel_header != NULL);");
    expectAssert([&] { MRLHelper::getMRLTavelHeaderFromString("", nullptr); },
                 "HBL_ASSERT(objectRegistry != NULL);");
    expectAssert([&] { MRLHelper::getMRLTavelHeaderFromString("", objects.get()); },
                 "HBL_ASSERT(tavel_header_size > 0);");
    for (const char* bad : {"<a/>", "no XML", "<a"}) {
        EXPECT_THROW(MRLHelper::getMRLTavelHeaderFromString(bad, objects.get()), HBLThrowable) << bad;
    }
    text = "<x" + DECLARATIONS + "\"b:tavelHeader\" xsi:nil=\"true\"/>";
    expectAssert([&] { MRLHelper::getMRLTavelHeaderFromString(text.c_str(), objects.get()); },
                 "HBL_ASSERT(pDeserializedObject != NULL);");
}

class Cookies : public WithStore {};

TEST_F(Cookies, GiveTheAccessBlockThatTheyCarrySigned) {
    writeStore(KNOWN_STORE);
    const auto cookie = [](const std::string& xml) {
        return HBLZORCookie::fromXMLString(xml, std::chrono::hours(1)).getValue();
    };
    const auto objects = registry();
    const auto read = [&](const std::string& value) {
        return MRLHelper::getMRLZORFromZORCookie(value.c_str(), objects.get());
    };
    const std::string good = cookie(std::string("<z") + DECLARATIONS +
                                    "\"b:ZOR\"><action xsi:type=\"xsd:string\">logon</action></z>");
    ASSERT_NE(read(good), nullptr);
    EXPECT_STREQ(read(good)->getAction(), "logon");
    EXPECT_EQ(read(cookie(std::string("<z") + DECLARATIONS + "\"b:tavelHeader\"/>")), nullptr);
    EXPECT_THROW(read(cookie("no XML")), MRLException);
    std::string forged = good;
    forged[good.size() / 2] = forged[good.size() / 2] == 'A' ? 'B' : 'A';
    EXPECT_THROW(read(forged), ZORError);
    expectAssert([&] { read(""); }, "HBL_ASSERT(!zor_cookie_str.empty());");
    expectAssert([&] { MRLHelper::getMRLZORFromZORCookie(nullptr, nullptr); },
                 "HBL_ASSERT(zor_cookie != NULL);");
    expectAssert([&] { MRLHelper::getMRLZORFromZORCookie("", nullptr); },
                 "HBL_ASSERT(objectRegistry != NULL);");
}

TEST(Headers, GiveThePassportWhereThereIsOne) {
    const auto objects = registry();
    MRLTavelHeader header;
    EXPECT_EQ(MRLHelper::getPassport(nullptr), nullptr);
    EXPECT_EQ(MRLHelper::getPassport(&header), nullptr);
    MRLZORPassport* const passport = header.getZOR(objects.get())->getZORPassport(objects.get());
    EXPECT_EQ(MRLHelper::getPassport(&header), nullptr);
    passport->setId("id");
    EXPECT_STREQ(MRLHelper::getPassport(&header), "id");
}

/// Fills `items` with (a, null), (A, 1), (null, 2), (a, 3), (a, 4).
template <class Item, class Array>
void fill(Array& items, std::vector<std::unique_ptr<Item>>& owners) {
    constexpr const char* PAIRS[][2] = {{"a", nullptr}, {"A", "1"}, {nullptr, "2"}, {"a", "3"}, {"a", "4"}};
    for (const auto& [name, value] : PAIRS) {
        owners.push_back(std::make_unique<Item>());
        owners.back()->setName(name);
        owners.back()->setValue(value);
        items.push_back(owners.back().get());
    }
}

TEST(Headers, GiveTheFirstVariableOfANameThatHasAValue) {
    const auto objects = registry();
    MRLTavelHeader header;
    EXPECT_EQ(MRLHelper::getFormFieldVar(nullptr, "a"), nullptr);
    EXPECT_EQ(MRLHelper::getFormFieldVar(&header, "a"), nullptr);
    EXPECT_EQ(MRLHelper::getDispatcherTransportVar(nullptr, "a"), nullptr);
    std::vector<std::unique_ptr<MRLFormFieldVar>> fields;
    fill(header.getHdrSession(objects.get())->getFormFieldVars(), fields);
    std::vector<std::unique_ptr<MRLDispatcherTransportVar>> variables;
    fill(header.getDispatcherTransportVars(), variables);
    EXPECT_STREQ(MRLHelper::getFormFieldVar(&header, "a"), "3");
    EXPECT_EQ(MRLHelper::getFormFieldVar(&header, "b"), nullptr);
    EXPECT_STREQ(MRLHelper::getDispatcherTransportVar(&header, "a"), "3");
    EXPECT_EQ(MRLHelper::getDispatcherTransportVar(&header, ""), nullptr);
    expectAssert([] { MRLHelper::getFormFieldVar(nullptr, nullptr); }, "HBL_ASSERT(formFieldVarName);");
    expectAssert([] { MRLHelper::getDispatcherTransportVar(nullptr, nullptr); },
                 "HBL_ASSERT(dispatcherTransportVarName);");
}

/// What `ask` sets, or "-" when nothing is configured.
template <class Ask>
std::string asked(const Ask& ask) {
    I18NString uri("before");
    try {
        ask(uri);
    } catch (HBLAssertError& e) {
        EXPECT_NE(std::string(e.getText()).find("URI not found in configuration"), std::string::npos);
        EXPECT_EQ(uri, "before");
        return "-";
    }
    return uri.toUtf8();
}

TEST(Endpoints, AndTheirLikeComeFromTheConfiguration) {
    for (const auto& row : mrl::test::table("endpoints.txt")) {
        const ConfigurationFile file(ConfigurationFile::withParameters(row[0]));
        EXPECT_EQ(asked(MRLHelper::getContentManagerURI), row[1]) << row[0];
        EXPECT_EQ(asked([](I18NString& uri) { MRLHelper::getDispatcherURI(uri, 0); }), row[2]) << row[0];
        EXPECT_EQ(asked([](I18NString& uri) { MRLHelper::getDispatcherURI(uri, 1); }), row[3]) << row[0];
        EXPECT_EQ(std::to_string(MRLHelper::getLumenaInactivityTimeout()), row[4]) << row[0];
        std::string algorithm;
        if (row[5] == "-") {
            expectFailure([&] { MRLHelper::getPdfSecurityAlgorithm(algorithm); }, msg::malformedXmlDocument,
                          {"1", "1"});
        } else {
            MRLHelper::getPdfSecurityAlgorithm(algorithm);
            EXPECT_EQ(algorithm, row[5]) << row[0];
        }
    }
}

} // namespace
