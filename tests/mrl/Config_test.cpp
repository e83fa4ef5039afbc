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

struct Complaint {
    const char* name;
    std::string file;
    const char* said;
};

class Config : public testing::TestWithParam<Complaint> {};

std::string settings(const std::string& rows) {
    return WITH("<qzn:parameter name='advancedSettings'><qzn:value>\n" + rows +
                "</qzn:value></qzn:parameter>");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Files, Config, testing::Values(
    Complaint{"good", WITH(PARAMETER("contentManager", "https://cm.example")), ""},
    Complaint{"cut_off", "<qzn:parameters\n", ":2:1: error: expected an XML document with the root qzn:parameters: unexpected end of input\n"},
    Complaint{"misspelt_property", WITH(PARAMETER("contentManger", "http://a")), ":2:37: warning: the toolkit does not know the property \"contentManger\"; did you mean contentManager or contentManagers?\n"},
    Complaint{"misspelt_element", WITH("<qzn:paramter name='temp'/>"), ":2:28: error: expected qzn:parameter, found \"qzn:paramter\"\n"},
    Complaint{"address", WITH(PARAMETER("sdk", "ftp://u:geheim@h")), ":2:27: warning: expected an address that begins with http:// or https:// as the value of \"sdk\", found \"ftp://u:********@h\"\n"},
    Complaint{"no_flag", WITH(PARAMETER("encryptTemporaryFiles", "TRUE")), ":2:45: error: expected true or false as the value of \"encryptTemporaryFiles\", found \"TRUE\"\n"},
    Complaint{"no_number", WITH(PARAMETER("rsChartHotspotLimit", "none")), ":2:43: warning: expected a whole number as the value of \"rsChartHotspotLimit\", found \"none\"\n"},
    Complaint{"misspelt_setting", settings("<qzn:setting name='RENQ.SOAP.CHECKACTON'>TRUE</qzn:setting>"), ":3:42: warning: the toolkit does not know the setting \"RENQ.SOAP.CHECKACTON\"; did you mean RENQ.SOAP.CHECKACTION?\n"},
    Complaint{"setting_no_flag", settings("<qzn:setting name='RENQ.SOAP.CheckAction'>yes</qzn:setting>"), ":3:43: warning: expected TRUE or FALSE (this is taken for FALSE) as the value of \"RENQ.SOAP.CheckAction\", found \"yes\"\n"},
    Complaint{"setting_no_choice", settings("<qzn:setting name='RENQ.VIRTUAL.MAPPINGMODE'>none</qzn:setting>"), ":3:46: warning: expected one of OFFSET,INDIRECT,DIRECT,PAGEDINDEX as the value of \"RENQ.VIRTUAL.MAPPINGMODE\", found \"none\"\n"},
    Complaint{"setting_no_character", settings("<qzn:setting name='RENQ.CSV.DELIMITER'>;;</qzn:setting>"), ":3:40: warning: expected one character or its name (only the first is taken) as the value of \"RENQ.CSV.DELIMITER\", found \";;\"\n"},
    Complaint{"setting_no_encoding", settings("<qzn:setting name='RENQ.CSV.ENCODING'>utf-9</qzn:setting>"), ":3:39: warning: expected the name of an encoding (UTF16_LittleEndian is taken) as the value of \"RENQ.CSV.ENCODING\", found \"utf-9\"\n"},
    Complaint{"setting_twice", settings("<qzn:setting name='RENQ.CSV.DELIMITER'>;</qzn:setting>\n<qzn:setting name='renq.csv.delimiter'>TAB</qzn:setting>"), ":4:40: warning: expected each setting once, found \"renq.csv.delimiter\" again, first at line 3; the last counts\n"},
    Complaint{"settings_no_xml", WITH(PARAMETER("advancedSettings", "a=b")), ":2:40: error: expected qzn:setting elements, or the same as XML in a text, as the value of \"advancedSettings\": invalid document structure\n"},
    Complaint{"misspelt_timeout", WITH("<qzn:parameter name='AAA'><qzn:value>" + PARAMETER("inactivityTimeOut", "5") + "</qzn:value></qzn:parameter>"), ":2:78: warning: the toolkit does not know the parameter \"inactivityTimeOut\"; did you mean inactivityTimeout?\n"},
    Complaint{"several_in_order", WITH(PARAMETER("own", "1") + "\n<x/>\n" + PARAMETER("emailEncoding", "x")), ":2:27: warning: the toolkit does not know the property \"own\"\n:3:5: error: expected qzn:parameter, found \"x\"\n:4:37: warning: expected the name of an encoding as the value of \"emailEncoding\", found \"x\"\n"}
), [](const auto& tested) { return tested.param.name; });
// clang-format on

TEST_P(Config, IsExaminedWithPlaceAndRemedy) {
    EXPECT_EQ(complaints(GetParam().file), GetParam().said);
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
