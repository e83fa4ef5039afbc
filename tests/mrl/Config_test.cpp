#include "config/ConfigCheck.h"
#include "config/ConfigShow.h"
#include "config/Secrets.h"
#include "support/ConfigurationFile.h"
#include "support/Table.h"

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

/// What `print` says about a file with these parameters, "PATH" for its path.
template <class Print>
std::string said(const std::string& parameters, const Print& print) {
    const std::string path = ConfigurationFile::path();
    const ConfigurationFile file(ConfigurationFile::withParameters(parameters));
    std::ostringstream out;
    print(HBLConfigurationDocument::read(path), out);
    std::string text = out.str();
    for (auto at = text.find(path); at != text.npos; at = text.find(path)) {
        text.replace(at, path.size(), "PATH");
    }
    return text;
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
    for (const auto& row : mrl::test::table("secrets.txt")) { // name, value, what is shown
        EXPECT_EQ(shown(row[0], row[1]), row[2]);
    }
}

} // namespace
