#include "Session/Table.h"
#include "config/ConfigCheck.h"
#include "config/ConfigShow.h"
#include "config/Secrets.h"
#include "support/ConfigurationFile.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

using mrl::tool::examined;
using mrl::tool::printConfiguration;
using mrl::tool::printFindings;
using mrl::tool::shown;

constexpr auto WITH = ConfigurationFile::withParameters;
constexpr auto PARAMETER = ConfigurationFile::parameter;

/// What is said about a file with this text, without its path.
std::string complaints(const std::string& text) {
    const ConfigurationFile file(text);
    std::ostringstream out;
    printFindings(examined(HBLConfigurationDocument::read(ConfigurationFile::path())), out);
    std::string said = out.str();
    for (auto at = said.find(ConfigurationFile::path()); at != said.npos;
         at = said.find(ConfigurationFile::path())) {
        said.erase(at, ConfigurationFile::path().size());
    }
    return said;
}

TEST(Config, IsExaminedWithPlaceAndRemedy) {
    for (const auto& row : mrl::test::table("config.txt")) {
        EXPECT_EQ(complaints(WITH(row[0])), row[1]);
    }
}

TEST(Config, ShowsWhatHoldsAndWhereItComesFrom) {
    const ConfigurationFile file(WITH(PARAMETER("sdk", "http://u:pw@h/?a:b@c") + "\n" +
                                      PARAMETER("mailPassword", "geheim") + "\n" +
                                      "<qzn:parameter name='AAA'><qzn:value>" + PARAMETER("signingKey", "k") +
                                      PARAMETER("inactivityTimeout", "5") + "</qzn:value></qzn:parameter>"));
    const auto document = HBLConfigurationDocument::read(ConfigurationFile::path());
    std::ostringstream out;
    printConfiguration(&document, out);
    std::istringstream in(out.str());
    const std::string path = ConfigurationFile::path();
    const std::vector<std::string> expected = {
        "sdk = http://u:********@h/?a:b@c # " + path + ":2:27",
        "mailPassword = ******** # " + path + ":3:36",
        "AAA # " + path + ":4:27",
        "    signingKey = ******** # " + path + ":4:71",
        "    inactivityTimeout = 5 # " + path + ":4:151",
        "temp = ../temp # default",
        "gateway # not set",
    };
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) {
        const auto mark = line.rfind(" # ");
        lines.push_back(line.substr(0, line.find_last_not_of(' ', mark) + 1) + line.substr(mark));
    }
    for (const std::string& line : expected) {
        EXPECT_NE(std::find(lines.begin(), lines.end(), line), lines.end()) << line << "\nnot in\n"
                                                                            << out.str();
    }
    EXPECT_EQ(lines.back(), "mailPassword = ******** # " + path + ":3:36"); // the host's own come last
    EXPECT_EQ(out.str().find("geheim"), std::string::npos);
}

TEST(Config, MasksSecretsAndShowsControlCharacters) {
    struct Case {
        const char* name;
        const char* value;
        const char* expected;
    };
    for (const auto& [name, value, expected] :
         {Case{"DB_PASSWORD", "x", "********"}, Case{"accessToken", "x", "********"},
          Case{"a/secret", "x", "********"}, Case{"secret/a", "x", "x"}, Case{"keyboard", "x", "x"},
          Case{"password", "", ""},
          Case{"a", "https://u:p:q@h https://v:r@i", "https://u:********@h https://v:********@i"},
          Case{"a", "http://h:80/x@y", "http://h:80/x@y"}, Case{"a", "http://u@h", "http://u@h"},
          Case{"a", "1\n\x1b[2J\x7f", "1\\n\\x1b[2J\\x7f"}}) {
        EXPECT_EQ(shown(name, value), expected) << name;
    }
}

} // namespace
