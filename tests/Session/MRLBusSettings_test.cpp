// What the configuration says of the bus, on its way to the toolkit that carries the calls.
#include "Replies.h"
#include "Session/MRLBusSettings.h"
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/ConfigurationFile.h"
#include "support/FakeBus.h"
#include "support/ScriptedPeer.h"

#include "HBLCFGAPI/HBLConfigurationError.h"

#include <gmock/gmock.h>

using testing::HasSubstr;

namespace {

std::string bus(const std::string& settings) {
    return ConfigurationFile::withParameters(ConfigurationFile::parameter("bus", settings));
}

struct BusSettings : testing::Test {
    void ask() { session.submit(*call.binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr); }
    const mrl::test::TextCall call;
    MRLTavelHeader header;
    MRLSOAPSession session{&header, nullptr, nullptr, nullptr, nullptr, "test"};
};

TEST_F(BusSettings, ReachTheToolkitOfEachCallUntilTheConfigurationIsAnother) {
    const ConfigurationFile file(bus(ConfigurationFile::parameter("proxy", "\n proxy.example:3128 ") +
                                     ConfigurationFile::parameter("tls-ca-file", "/etc/../ca.pem")));
    session.setURI("http://bus.example/");
    const auto settings = [&] {
        mrl::test::FakeBus fake;
        fake.answer(mrl::test::answer("cm"));
        ask();
        std::vector<std::string> found;
        for (const std::string& operation : fake.calls) {
            if (operation.starts_with("setProperty(factory)")) {
                found.push_back(operation);
            }
        }
        return found;
    };
    for (int i = 0; i < 2; ++i) {
        EXPECT_THAT(settings(), testing::ElementsAre("setProperty(factory) proxy proxy.example:3128",
                                                     "setProperty(factory) tls-ca-file /ca.pem"));
    }
    const ConfigurationFile other(bus(ConfigurationFile::parameter("proxy", "other:1")));
    EXPECT_THAT(settings(), testing::ElementsAre("setProperty(factory) proxy other:1"));
}

TEST_F(BusSettings, AreObeyedByTheRealToolkit) {
    ScriptedPeer peer({{reply(mrl::test::answer("cm"))}});
    const ConfigurationFile file(bus(ConfigurationFile::parameter("proxy", peer.authority()) +
                                     ConfigurationFile::parameter("user", "anna") +
                                     ConfigurationFile::parameter("password", "secret")));
    session.setURI("http://bus.example/service"); // which nobody looks up: the proxy is asked
    ask();
    EXPECT_EQ("cm", call.result());
    EXPECT_THAT(peer.request(0), testing::StartsWith("POST http://bus.example:80/service HTTP/1.1\r\n"));
    EXPECT_THAT(peer.request(0), HasSubstr("Authorization: Basic YW5uYTpzZWNyZXQ=\r\n"));
}

TEST_F(BusSettings, ThatAreWrongAreNamedWithTheirPlaceByEveryCall) {
    struct Row {
        std::string settings;
        const char* place;
        const char* words;
    };
    for (const Row& row :
         {Row{ConfigurationFile::parameter("tls-verify-host", "yes"),
              ":2:", "'tls-verify-host' cannot be 'yes'"},
          Row{"\n" + ConfigurationFile::parameter("max-inflate-ratio", "2001"), ":3:", "give 0 to 2000"},
          Row{ConfigurationFile::parameter("proxy-password", "se\tcret"), ":2:", "cannot be '***'"},
          Row{ConfigurationFile::parameter("chunk-size", "1"),
              ":2:", "does not know the setting \"chunk-size\""},
          Row{ConfigurationFile::parameter("user", "anna") + "\n" +
                  ConfigurationFile::parameter("user", "eva"),
              ":3:", "found \"user\" again, first at line 2"},
          Row{"proxy.example:3128", ":2:", "found a text"}}) {
        const ConfigurationFile file(bus(row.settings));
        session.setURI("http://127.0.0.1:1/");
        for (int i = 0; i < 2; ++i) {
            try {
                ask();
                FAIL() << row.settings;
            } catch (const HBLConfigurationError& e) {
                EXPECT_THAT(e.getMessage(), HasSubstr(ConfigurationFile::path() + row.place));
                EXPECT_THAT(e.getMessage(), HasSubstr(row.words));
                EXPECT_THAT(e.getMessage(), HasSubstr("\"bus\""));
            }
        }
    }
}

TEST(BusSettingsNames, AreAllKnownToTheToolkit) {
    HBLConfigurationProperty property{"bus", true, "", {}};
    for (const std::string_view name : MRLBusSettings::names()) {
        property.entries.push_back({std::string(name), name == "tls-min-version" ? "1.3" : "1", {}});
    }
    for (const auto& finding : MRLBusSettings::check(property)) { // "1" is no proxy and no limit for a header
        EXPECT_THAT(finding.words, testing::AnyOf(HasSubstr("'proxy'"), HasSubstr("'max-header-bytes'")));
    }
}

} // namespace
