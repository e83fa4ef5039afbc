#include "support/ConfigurationFile.h"
#include "support/Environment.h"
#include "support/Failure.h"
#include "support/Files.h"
#include "support/Table.h"
#include "support/TemporaryDirectory.h"
#include "support/Threads.h"
#include "support/Xml.h"

#include "HBLCFGAPI/HBLConfigurationDocument.h"
#include "HBLCFGAPI/HBLConfigurationError.h"
#include "HBLCFGAPI/HBLConfigurationNames.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using mrl::test::parsed;

namespace {

IHBLConfiguration& service() {
    return HBLConfigurationFactory::getInstance();
}

std::string property(const char* name) {
    return service().getProperty(name).toUtf8();
}

/// The text of the failure to load, without the path in front.
std::string failureToLoad() {
    try {
        service().load();
    } catch (const HBLConfigurationError& e) {
        std::string text = e.getText();
        const std::string path = ConfigurationFile::path();
        EXPECT_TRUE(text.starts_with(path)) << text;
        return text.substr(path.size());
    }
    return "nothing was thrown";
}

TEST(Configuration, RefusesBrokenFilesWithPlaceAndRemedyEachTime) {
    for (const auto& row : mrl::test::table("broken.txt")) {
        const ConfigurationFile file(row[0] == "whole" ? row[1] : ConfigurationFile::withParameters(row[1]));
        for (int attempt = 0; attempt < 2; ++attempt) {
            const std::string failure = failureToLoad();
            EXPECT_TRUE(failure.starts_with(row[2])) << failure << " instead of " << row[2];
        }
    }
}

TEST(Configuration, GivesTextsTreesAndDefaults) {
    const ConfigurationFile file(ConfigurationFile::withParameters(
        ConfigurationFile::parameter("contentManager", "\n http://a&amp;b<![CDATA[<]]> \n") +
        ConfigurationFile::parameter("own", "<!-- none -->") +
        ConfigurationFile::parameter("advancedSettings",
                                     "<qzn:setting name=\"a&quot;\"> </qzn:setting><!-- x --><x/>")));
    service().load();
    EXPECT_EQ(property("contentManager"), "http://a&b<");
    EXPECT_EQ(property("own"), "");
    EXPECT_EQ(property("temp"), "../temp"); // not configured, but documented
    EXPECT_EQ(property("Temp"), "");
    EXPECT_EQ(property("advancedSettings"),
              "<qzn:value xmlns:qzn=\"http://developer.vantor.example/schemas/qzconfig/1/\">"
              "<qzn:setting name=\"a&quot;\"> </qzn:setting><x/></qzn:value>");

    const I18NString mine("mine");
    EXPECT_EQ(service().getProperty("own", &mine).toUtf8(), ""); // configured to be empty
    EXPECT_EQ(service().getProperty("temp", &mine).toUtf8(), "mine");

    const HBLIDOM_Element tree(service().getPropertyElement("advancedSettings"));
    EXPECT_EQ(tree.getTagName().toUtf8(), "qzn:value");
    EXPECT_EQ(tree.getOwnerDocument().getDocumentElement(), tree);
    const HBLIDOM_Node other = parsed("<a/>").getDocumentElement();
    EXPECT_EQ(service().getPropertyElement("contentManager", &other), other);
    EXPECT_TRUE(service().getPropertyElement("contentManager").isNull());
}

TEST(Configuration, MakesTreesIndependentOfThePrefixesAround) {
    const ConfigurationFile file(
        "<parameters xmlns='http://developer.vantor.example/schemas/qzconfig/1/' "
        "xmlns:s='urn:s'>"
        "<parameter name='CRYPTO'><value><instances s:a='1' xmlns:s='urn:t'>"
        "<s:b xmlns=''><c/></s:b></instances><s:d/></value></parameter>"
        "<parameter name='AAA'><value><parameter name='a'><value>1</value></parameter></value></parameter>"
        "</parameters>");
    EXPECT_EQ(property("CRYPTO"),
              "<qzn:value xmlns:qzn=\"http://developer.vantor.example/schemas/qzconfig/1/\">"
              "<qzn:instances xmlns:s=\"urn:t\" s:a=\"1\"><s:b><c/></s:b></qzn:instances>"
              "<s:d xmlns:s=\"urn:s\"/></qzn:value>");
    const auto document = HBLConfigurationDocument::read(ConfigurationFile::path());
    EXPECT_EQ(document.getProperties().at(1).entries.at(0).value, "1");
}

TEST(Configuration, IsReadFromTheDefaultPlaceOnlyOnceAndMayBeMissingThere) {
    ASSERT_EQ(::unsetenv("MRL_CONFIGURATION"), 0);
    const mrl::test::TemporaryDirectory directory;
    const std::string& home = directory.path();
    const mrl::test::Variable variable("MRL_HOME", home);
    HBLConfigurationFactory::deleteInstance();
    const auto location = HBLConfigurationFactory::getDefaultLocation();
    EXPECT_EQ(location.path, home + "/configuration/qzconfig.xml");
    EXPECT_FALSE(location.isFromEnvironment);

    service().load();
    EXPECT_EQ(property("emailEncoding"), "UTF-8");
    std::filesystem::create_directories(home + "/configuration");
    std::ofstream(location.path) << ConfigurationFile::withParameters(
        ConfigurationFile::parameter("emailEncoding", "utf-16"));
    service().load();
    EXPECT_EQ(property("emailEncoding"), "UTF-8");
    HBLConfigurationFactory::deleteInstance();
    EXPECT_EQ(property("emailEncoding"), "utf-16"); // a question loads
    HBLConfigurationFactory::deleteInstance();
}

TEST(Configuration, RefusesAMissingFileThatTheEnvironmentNames) {
    const ConfigurationFile file("");
    std::filesystem::remove(ConfigurationFile::path());
    EXPECT_EQ(failureToLoad(),
              ": expected a configuration file, as the environment variable MRL_CONFIGURATION "
              "names it; correct the variable, or unset it for the defaults");
}

TEST(Configuration, IsReplacedByParametersAndOverlaidByAQueryResult) {
    const ConfigurationFile file(
        ConfigurationFile::withParameters(ConfigurationFile::parameter("contentManager", "http://file") +
                                          ConfigurationFile::parameter("gateway", "http://gate")));

    const HBLIDOM_Document answer = // names without namespaces
        parsed("<qzn:queryResult xmlns:qzn='qzn'><item><contentManager><value>http://chosen</value>"
               "</contentManager></item></qzn:queryResult>");
    service().configure(answer.getDocumentElement());
    service().load();
    EXPECT_EQ(property("contentManager"), "http://chosen");
    EXPECT_EQ(property("gateway"), "http://gate");

    const HBLIDOM_Document whole =
        parsed(ConfigurationFile::withParameters(ConfigurationFile::parameter("sdk", "http://sdk")));
    service().configure(whole.getDocumentElement());
    service().load();
    EXPECT_EQ(property("contentManager"), "");
    EXPECT_EQ(property("sdk"), "http://sdk");

    EXPECT_THROW(service().configure(parsed("<x/>").getDocumentElement()), HBLConfigurationError);
    EXPECT_EQ(property("sdk"), "http://sdk");
    expectAssert([] { service().configure(HBLIDOM_Element()); }, "HBL_ASSERT(!root.isNull());");
}

TEST(Configuration, RefusesTreesMadeByHandThatNobodyCouldReadBack) {
    HBLIDOM_Document document = HBLIDOM_DOMImplementation::getInstance().createDocument();
    HBLIDOM_Element root = document.createElementNS("", "queryResult");
    HBLIDOM_Node at = root.appendChild(document.createElementNS("", "item"));
    at = at.appendChild(document.createElementNS("", "x"));
    const HBLIDOM_Element value(at.appendChild(document.createElementNS("", "value")));
    HBLIDOM_Element child(HBLIDOM_Node(value).appendChild(document.createElementNS("", "y")));
    child.setAttribute("p:q", "undeclared");
    const auto findings = HBLConfigurationDocument::fromElement(root, "memory").getFindings();
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].words, "the property \"x\": expected the prefix of \"p:q\" to be declared");

    at = child;
    for (int depth = 0; depth < 100'000; ++depth) {
        at = at.appendChild(document.createElementNS("", "z"));
    }
    child.setAttribute("p:q", "");
    EXPECT_FALSE(HBLConfigurationDocument::fromElement(root, "memory").getFindings().empty());
}

TEST(Configuration, AnswersFromOneCompleteStateWhileItChanges) {
    const ConfigurationFile file(ConfigurationFile::withParameters(""));
    const auto state = [](const std::string& text) {
        return parsed(ConfigurationFile::withParameters(
            ConfigurationFile::parameter("advancedSettings", "<a>" + text + "</a><b>" + text + "</b>")));
    };
    service().configure(state("0").getDocumentElement());
    std::atomic<bool> isOver = false;
    std::thread writer([&] {
        for (int i = 1; i < 200; ++i) {
            service().configure(state(std::to_string(i)).getDocumentElement());
        }
        isOver = true;
    });
    mrl::test::inThreads(4, [&](int) {
        while (!isOver) {
            const HBLIDOM_Node tree = service().getPropertyElement("advancedSettings");
            EXPECT_EQ(HBLIDOM_Helper::getElementText(tree.getFirstChild()),
                      HBLIDOM_Helper::getElementText(tree.getLastChild()));
        }
    });
    writer.join();
}

TEST(Configuration, ShipsAFileThatNamesEveryPropertyAndHoldsTheDefaults) {
    const auto shipped = HBLConfigurationDocument::read(MRL_RESOURCES "/qzconfig.xml");
    EXPECT_TRUE(shipped.getFindings().empty());
    for (const HBLConfigurationProperty& given : shipped.getProperties()) {
        const HBLConfigurationName* const known = HBLConfigurationNames::find(given.name);
        ASSERT_NE(known, nullptr) << given.name;
        EXPECT_EQ(given.value, known->defaultValue) << given.name;
    }
    const std::string text = mrl::test::bytesOfFile(MRL_RESOURCES "/qzconfig.xml");
    for (const HBLConfigurationName& known : HBLConfigurationNames::all()) {
        EXPECT_NE(text.find("<qzn:parameter name=\"" + std::string(known.name) + "\">"), std::string::npos)
            << known.name;
    }
}

} // namespace
