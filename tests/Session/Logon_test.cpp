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
#include "support/KeyStore.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/I18NString.h"
#include "ZORCrypto/HBLZORCookie.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <memory>
#include <thread>

namespace {

using mrl::test::FakeBus;

constexpr const char* REQUEST =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"http://schemas.xmlsoap.org/soap/envelope/\" "
    "xmlns:SOAP-ENC=\"http://schemas.xmlsoap.org/soap/encoding/\" "
    "xmlns:bus=\"http://developer.vantor.example/schemas/tavel/3/\" "
    "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" "
    "SOAP-ENV:encodingStyle=\"http://schemas.xmlsoap.org/soap/encoding/\">"
    "<SOAP-ENV:Header><bus:tavelHeader xsi:type=\"bus:tavelHeader\"><bus:ZOR xsi:type=\"bus:ZOR\">"
    "<bus:action xsi:type=\"xsd:string\">logon</bus:action></bus:ZOR></bus:tavelHeader></SOAP-ENV:Header>"
    "<SOAP-ENV:Body></SOAP-ENV:Body></SOAP-ENV:Envelope>";

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

struct Logon {
    const char* name;
    std::string header;
    int fromPassportValue;
    const char* passport; ///< or the whole text of the assertion
};

class AnonymousLogon : public testing::TestWithParam<Logon> {};

// clang-format off
INSTANTIATE_TEST_SUITE_P(Replies, AnonymousLogon, testing::Values(
    Logon{"typed", PASSPORT, 0, "101:abc"},
    Logon{"typed_without_passport", "", 0, R"(HBL_ASSERT_NAMED(!zorPassportElem.isNull(), "No ZORPassport element was returned.");)"},
    Logon{"typed_without_id", "<b:ZORPassport/>", 0, R"(HBL_ASSERT_NAMED(!idElem.isNull(), "No id element was returned in the ZORPassort element.");)"},
    Logon{"typed_empty_id", "<b:ZORPassport><b:id/></b:ZORPassport>", 0, R"(HBL_ASSERT_NAMED(!idElemText.empty(), "An empty id element was returned in the ZORPassort element.");)"},
    Logon{"value_first", "<item><value>v1</value><name>zor_passport</name><value>v2</value></item>", 1, "v1"},
    Logon{"value_none", "<item><value>other</value></item><item><name>zor_passport</name></item>", 1, "before"},
    Logon{"value_without_name", PASSPORT, 1, R"(HBL_ASSERT_NAMED(!zorPassportEle.isNull(), "No zor_passport element was returned.");)"}
), [](const auto& tested) { return tested.param.name; });
// clang-format on

TEST_P(AnonymousLogon, TakesThePassportFromTheReply) {
    FakeBus bus;
    bus.answer(reply(GetParam().header));
    std::string passport = "before";
    const auto logon = [&] {
        MRLHelper::logonAsAnonymous(passport, GetParam().fromPassportValue, "http://d");
    };
    if (std::string(GetParam().passport).starts_with("HBL_ASSERT")) {
        expectAssert(logon, GetParam().passport);
        EXPECT_EQ(passport, "before");
    } else {
        logon();
        EXPECT_EQ(passport, GetParam().passport);
    }
    EXPECT_EQ(bus.requests, std::vector<std::string>{REQUEST});
    EXPECT_EQ(bus.live, 0);
    const std::string action =
        "openEnvelope http://developer.vantor.example/schemas/tavel/3#contentManagerService";
    EXPECT_NE(std::find(bus.calls.begin(), bus.calls.end(), action), bus.calls.end());
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

TEST(Headers, ComeFromTexts) {
    const std::string declarations = " xmlns:b=\"http://developer.vantor.example/schemas/tavel/3/\" "
                                     "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                     "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" xsi:type=";
    const auto objects = registry();
    std::string text = PASSPORT;
    text.replace(text.find(" xsi:type="), 10, declarations);
    EXPECT_STREQ(MRLHelper::getPassport(MRLHelper::getMRLTavelHeaderFromString(text.c_str(), objects.get())),
                 "101:abc");
    text = "<x" + declarations + "\"b:ZOR\"/>";
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
    text = "<x" + declarations + "\"b:tavelHeader\" xsi:nil=\"true\"/>";
    expectAssert([&] { MRLHelper::getMRLTavelHeaderFromString(text.c_str(), objects.get()); },
                 "HBL_ASSERT(pDeserializedObject != NULL);");
}

class Cookies : public WithStore {};

TEST_F(Cookies, GiveTheAccessBlockThatTheyCarrySigned) {
    writeStore(KNOWN_STORE);
    constexpr const char* DECLARATIONS = " xmlns:b=\"http://developer.vantor.example/schemas/tavel/3/\" "
                                         "xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                         "xmlns:xsd=\"http://www.w3.org/2001/XMLSchema\" xsi:type=";
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

struct Endpoint {
    const char* parameters;
    const char* contentManager; ///< empty for the assertion
    const char* dispatcher;
    const char* internal;
};

TEST(Endpoints, ComeFromTheConfigurationInOrder) {
    constexpr const char* MANAGERS = "<qzn:parameter name='contentManagers'><qzn:value><qzn:item>\n http://1 "
                                     "</qzn:item><qzn:item>http://2</qzn:item></qzn:value></qzn:parameter>";
    const std::string both = ConfigurationFile::parameter("contentManager", "http://0") + MANAGERS +
                             ConfigurationFile::parameter("internalDispatcher", "http://i") +
                             ConfigurationFile::parameter("externalDispatcher", "http://e");
    const std::string external = MANAGERS + ConfigurationFile::parameter("internalDispatcher", "") +
                                 ConfigurationFile::parameter("sdk", "http://s") +
                                 ConfigurationFile::parameter("externalDispatcher", "http://e");
    const std::string sdk = ConfigurationFile::parameter("sdk", "http://s");
    for (const auto& [parameters, contentManager, dispatcher, internal] :
         {Endpoint{both.c_str(), "http://0", "http://i", "http://i"},
          Endpoint{external.c_str(), "http://1", "http://e", ""}, Endpoint{sdk.c_str(), "", "http://s", ""},
          Endpoint{"", "", "", ""}}) {
        const ConfigurationFile file(ConfigurationFile::withParameters(parameters));
        const auto expect = [](const char* expected, const char* failure, auto&& ask) {
            I18NString uri("before");
            if (*expected == '\0') {
                expectAssert([&] { ask(uri); }, failure);
                EXPECT_EQ(uri, "before");
            } else {
                ask(uri);
                EXPECT_EQ(uri, expected);
            }
        };
        constexpr const char* NO_DISPATCHER =
            R"(HBL_ASSERT_NAMED(!dispatcherURI.empty(), "Dispatcher URI not found in configuration");)";
        expect(
            contentManager,
            R"(HBL_ASSERT_NAMED(!contentManagerURI.empty(), "Content Manager URI not found in configuration");)",
            [](I18NString& uri) { MRLHelper::getContentManagerURI(uri); });
        expect(dispatcher, NO_DISPATCHER, [](I18NString& uri) { MRLHelper::getDispatcherURI(uri, 0); });
        expect(internal, NO_DISPATCHER, [](I18NString& uri) { MRLHelper::getDispatcherURI(uri, 1); });
    }
}

TEST(Endpoints, KeepTheAddressOfTheHost) {
    std::vector<std::jthread> threads;
    for (const char* uri : {"http://first", "http://other"}) {
        threads.emplace_back([uri] {
            for (int i = 0; i < 1000; ++i) {
                MRLHelper::setUserSpecifiedURI(uri);
                std::string got;
                MRLHelper::getUserSpecifiedURI(got);
                EXPECT_TRUE(got == "http://first" || got == "http://other") << got;
            }
        });
    }
    threads.clear();
    MRLHelper::setUserSpecifiedURI("");
}

struct Timeout {
    const char* aaa;
    unsigned int seconds;
};

TEST(Logon, TimesOutAsConfigured) {
    constexpr const char* HEAD = "<qzn:parameter name='inactivityTimeout'>";
    for (const auto& [aaa, seconds] :
         {Timeout{"<qzn:value>900</qzn:value></qzn:parameter>", 900},
          Timeout{"<qzn:value>soon</qzn:value></qzn:parameter>", 0}, Timeout{"</qzn:parameter>", 3600},
          Timeout{"<value>900</value></qzn:parameter>", 3600}}) {
        const ConfigurationFile file(
            ConfigurationFile::withParameters(ConfigurationFile::parameter("AAA", std::string(HEAD) + aaa)));
        EXPECT_EQ(MRLHelper::getLumenaInactivityTimeout(), seconds) << aaa;
    }
    for (const std::string& aaa :
         {ConfigurationFile::parameter("AAA", "<qzn:parameter name='o'/>"), std::string()}) {
        const ConfigurationFile file(ConfigurationFile::withParameters(aaa));
        EXPECT_EQ(MRLHelper::getLumenaInactivityTimeout(), 3600U) << aaa;
    }
}

} // namespace
