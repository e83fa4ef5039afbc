#include "config/ConfigCheck.h"
#include "config/ConfigShow.h"
#include "config/PropertyFileCheck.h"
#include "config/Secrets.h"
#include "support/ConfigurationFile.h"
#include "support/Table.h"

#include "HBLCFGAPI/HBLConfigurationNames.h"
#include "ZORCrypto/ZORKeyStore.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <sstream>
#include <string>

namespace {

using mrl::tool::examined;
using mrl::tool::printConfiguration;
using mrl::tool::printFindings;
using mrl::tool::shown;

/// What `print` says about a file with this content, "PATH" for its path.
template <class Print>
std::string saidOf(const std::string& content, const Print& print) {
    const std::string path = ConfigurationFile::path();
    const ConfigurationFile file(content);
    std::ostringstream out;
    print(path, out);
    std::string text = out.str();
    for (auto at = text.find(path); at != text.npos; at = text.find(path)) {
        text.replace(at, path.size(), "PATH");
    }
    return text;
}

/// What `print` says about a configuration with these parameters.
template <class Print>
std::string said(const std::string& parameters, const Print& print) {
    return saidOf(ConfigurationFile::withParameters(parameters), [&](const std::string& path, auto& out) {
        print(HBLConfigurationDocument::read(path), out);
    });
}

TEST(Config, OfPropertiesIsExaminedWithPlaceAndRemedy) {
    for (const auto& row : mrl::test::table("properties.txt")) {
        EXPECT_EQ(saidOf(row[0],
                         [](const std::string& path, auto& out) {
                             printFindings(mrl::tool::examinedProperties(path).findings, out);
                         }),
                  row[1]);
    }
}

TEST(Config, IsExaminedWithPlaceAndRemedy) {
    for (const auto& row : mrl::test::table("config.txt")) {
        EXPECT_EQ(
            said(row[0], [](const auto& document, auto& out) { printFindings(examined(document), out); }),
            row[1]);
    }
}

TEST(Config, IsShownWithWhereItComesFromAndWithoutSecrets) {
    std::ifstream golden(MRL_TEST_DATA "/golden/show.txt");
    std::string parameters; // up to an empty line; behind it what is shown
    for (std::string line; std::getline(golden, line) && !line.empty();) {
        parameters += (parameters.empty() ? "" : "\n") + line;
    }
    const std::string expected{std::istreambuf_iterator<char>(golden), {}};
    EXPECT_EQ(said(parameters, [](const auto& document, auto& out) { printConfiguration(&document, out); }),
              expected);
    EXPECT_EQ(HBLConfigurationNames::find("keyStore")->defaultValue, ZORKeyStore::s_defaultLocation);
    for (const auto& row : mrl::test::table("secrets.txt")) { // name, value, what is shown
        EXPECT_EQ(shown(row[0], row[1]), row[2]);
    }
}

} // namespace
