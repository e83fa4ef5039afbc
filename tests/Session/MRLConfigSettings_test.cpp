#include "Session/MRLAdvancedSetting.h"
#include "Session/MRLConfigSettings.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"

#include "HBLCFGAPI/HBLConfigurationError.h"
#include "HBLIDOM/HBLIDOM.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <sstream>
#include <thread>
#include <type_traits>
#include <vector>

namespace {

using Settings = MRLConfigSettings;

/// The settings of `component` from a file with `parameters`, while this lives.
class Read {
public:
    explicit Read(const std::string& parameters, const char* component = "RENQ")
        : m_file(ConfigurationFile::withParameters(parameters)) {
        Settings::deleteInstance();
        m_settings = &Settings::getInstance(component);
    }
    ~Read() { Settings::deleteInstance(); }
    const Settings* operator->() const { return m_settings; }
    const Settings& operator*() const { return *m_settings; }

private:
    ConfigurationFile m_file;
    const Settings* m_settings;
};

std::string advanced(const std::string& name, const std::string& value) {
    return ConfigurationFile::parameter("advancedSettings",
                                        "<qzn:setting name=\"" + name + "\">" + value + "</qzn:setting>");
}

struct Flag {
    const char* name;
    int (Settings::*get)() const;
    int byDefault = 0;
};

const std::vector<Flag> FLAGS = {
    {"RENQ.CSV.REPEAT_XTAB_LABELS", &Settings::getCSVRepeatXtabLabels},
    {"RENQ.CSV.TRIMSPACES", &Settings::isCSVTrimSpaces},
    {"RENQ.PARAMETERS.SAVE", &Settings::isParametersSave},
    {"RENQ.CHARTS.ALTERNATECOLOURS", &Settings::isUseAlternateColours},
    {"EnableChartTransparencyIE", &Settings::isEnableChartTransparencyIE, 1},
    {"HyperlinkButtonNewWindow", &Settings::isHyperlinkButtonNewWindow, 1},
    {"HyperlinkMultipleToolbars", &Settings::isHyperlinkMultipleToolbars, 1},
    {"RENQ.FILE.EXTENSION.XLS", &Settings::isFileExtensionXLS},
    {"RENQ.NAVIGATION.LUMENA", &Settings::isNavigationLumena},
    {"RENQ.EXCEL.DISPLAYHTML", &Settings::getExcelDisplayHTML},
    {"RENQ.LAYOUTEXPRESSION.IGNOREERROR", &Settings::getIgnoreExpressionError},
    {"RENQ.PROMPT.RENDERBATCH", &Settings::getRenderPromptInBatch},
    {"RENQ.EXCEL.LEGACYROUNDING", &Settings::getLegacyRounding},
    {"RENQ.XTAB.RENDER.IGNOREERROR", &Settings::getIgnoreXtabRenderError},
    {"RENQ.PROMPT.ALLREMAININGOPTIONAL", &Settings::getGeneratePromptPageForOptionalParameters},
    {"RENQ.CONCURRENTQUERY.ENABLEDFORINTERACTIVEOUTPUT",
     &Settings::getConcurrentQueryEnabedForInteractiveOutput},
    {"RENQ.CHART.ZERO.TOLERANCE", &Settings::getAxisLabelAsZero},
    {"RENQ.KALSA.SPECIAL.CELL.VALUES", &Settings::getKalsaSpecialCellValues},
    {"RENQ.RENDER.IGNOREEMPTYDETAILPAGES", &Settings::getIgnoreEmptyDetailPages},
    {"RENQ.CHART.LEGACYLABELS", &Settings::getUseChartLegacyLabelFunctionality},
    {"RENQ.SOAP.CHECKACTION", &Settings::getFaultOnSoapActionMismatch},
    {"RENQ.EXCEL.NUMBEREDSHEETNAMES", &Settings::getUseExcelNumberedSheetNames, 1},
    {"UPGRADEMANAGER.CLEANDIRECTORIES", &Settings::getUpgradeManagerCleanDirectories},
    {"UPGRADEMANAGER.ENABLELOGGING", &Settings::getUpgradeManagerEnableLogging},
};

TEST(MRLConfigSettings, SetsEachFlagForTrueAloneAndNoOther) {
    for (const Flag& flag : FLAGS) {
        for (const char* value : {"TRUE", "tRue", "yes", "1", ""}) {
            const Read settings(advanced(flag.name, value));
            for (const Flag& other : FLAGS) {
                const bool isTrue = std::string(value).size() == 4;
                EXPECT_EQ(((*settings).*other.get)(), &other == &flag ? isTrue : other.byDefault)
                    << flag.name << "=" << value << ": " << other.name;
            }
        }
    }
}

struct Valued {
    const char* name;
    const char* value;
    std::function<std::string(const Settings&)> get;
    const char* expected;
};

class OneSetting : public testing::TestWithParam<Valued> {};

std::string text(const I18NString& value) {
    return value.toUtf8();
}
std::string text(std::string value) {
    return value;
}
template <class Number>
requires std::is_arithmetic_v<Number> || std::is_enum_v<Number> std::string text(Number value) {
    return std::to_string(value);
}

#define GET(getter) [](const Settings& settings) { return text(settings.getter()); }

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, OneSetting, testing::Values(
    Valued{"unknown", "x", GET(getCSVDelimiter), "9"},
    Valued{"RENQ.CSV.DELIMITER", "tab", GET(getCSVDelimiter), "9"},
    Valued{"renq.csv.delimiter", "cr", GET(getCSVDelimiter), "13"},
    Valued{"RENQ.CSV.DELIMITER", "LF", GET(getCSVDelimiter), "10"},
    Valued{"RENQ.CSV.DELIMITER", ";;", GET(getCSVDelimiter), "59"},
    Valued{"RENQ.CSV.DELIMITER", " ", GET(getCSVDelimiter), "32"},
    Valued{"RENQ.CSV.DELIMITER", "\xf0\x9f\x98\x80x", GET(getCSVDelimiter), "128512"},
    Valued{"RENQ.CSV.DELIMITER", "Locale", GET(getCSVDelimiter), "0"},
    Valued{"RENQ.CSV.DELIMITER", "", GET(getCSVDelimiter), "9"},
    Valued{"RENQ.CSV.", ";", GET(getCSVDelimiter), "9"},
    Valued{"RENQ.CSV.QUALIFIER", "'", GET(getCSVQualifier), "39"},
    Valued{"RENQ.CSV.QUALIFIER", "Tab", GET(getCSVQualifier), "9"},
    Valued{"RENQ.CSV.QUALIFIER", "", GET(getCSVQualifier), "34"},
    Valued{"unknown", "x", GET(getCSVTerminator), "\n"},
    Valued{"RENQ.CSV.TERMINATOR", "crlf", GET(getCSVTerminator), "\r\n"},
    Valued{"RENQ.CSV.TERMINATOR", "LFCR", GET(getCSVTerminator), "\n\r"},
    Valued{"RENQ.CSV.TERMINATOR", "TAB", GET(getCSVTerminator), "\t"},
    Valued{"RENQ.CSV.TERMINATOR", "|=|", GET(getCSVTerminator), "|"},
    Valued{"RENQ.CSV.TERMINATOR", "", GET(getCSVTerminator), "\n"},
    Valued{"RENQ.CSV.MIMETYPE", "text/csv", GET(getCSVMime), "text/csv"},
    Valued{"RENQ.CSV.ENCODING", "", GET(getCSVConverter()->getName), "UTF-16LE"},
    Valued{"RENQ.CSV.ENCODING", "utf-8", GET(getCSVConverter()->getName), "UTF-8"},
    Valued{"RENQ.CSV.ENCODING", "no-such", GET(getCSVConverter()->getName), "UTF-16LE"},
    Valued{"RENQ.CSV.ENCODING", "locale", [](const Settings& settings) { return text(settings.getCSVConverter() == nullptr); }, "1"},
    Valued{"unknown", "x", GET(getChartHotSpotLimit), "-1"},
    Valued{"RENQ.SELECTION_UI.enableWith", "drill", GET(getSelectionUIEnabled), "1"},
    Valued{"RENQ.SELECTION_UI.enableWith", "TRUE", GET(getSelectionUIEnabled), "0"},
    Valued{"RENQ.PROMPT.RECONCILIATION", "complete", GET(getPromptReconciliation), "0"},
    Valued{"RENQ.PROMPT.RECONCILIATION", "Grouped", GET(getPromptReconciliation), "1"},
    Valued{"RENQ.PROMPT.RECONCILIATION", "1", GET(getPromptReconciliation), "1"},
    Valued{"RENQ.PROMPT.RECONCILIATION", "chunked grouped", GET(getPromptReconciliation), "2"},
    Valued{"RENQ.PROMPT.RECONCILIATION", "2", GET(getPromptReconciliation), "2"},
    Valued{"RENQ.PROMPT.RECONCILIATION", "chunked", GET(getPromptReconciliation), "3"},
    Valued{"RENQ.PROMPT.RECONCILIATION", "3", GET(getPromptReconciliation), "3"},
    Valued{"RENQ.PROMPT.RECONCILIATION", "4", GET(getPromptReconciliation), "0"},
    Valued{"RENQ.PROMPT.RECONCILIATION.CHUNKSIZE", "17", GET(getPromptReconciliationChunkSize), "17"},
    Valued{"RENQ.PROMPT.RECONCILIATION.CHUNKSIZE", " 17 rows", GET(getPromptReconciliationChunkSize), "17"},
    Valued{"RENQ.PROMPT.RECONCILIATION.CHUNKSIZE", "many", GET(getPromptReconciliationChunkSize), "5"},
    Valued{"RENQ.PROMPT.RECONCILIATION.CHUNKSIZE", "0", GET(getPromptReconciliationChunkSize), "5"},
    Valued{"RENQ.PROMPT.RECONCILIATION.CHUNKSIZE", "-3", GET(getPromptReconciliationChunkSize), "5"},
    Valued{"RENQ.PROMPT.RECONCILIATION.CHUNKSIZE", "99999999999", GET(getPromptReconciliationChunkSize), "2147483647"},
    Valued{"unknown", "x", GET(getConcurrentQueryNumHelpersPerProcess), "0"},
    Valued{"RENQ.CONCURRENTQUERY.NUMHELPERSPERPROCESS", "7", GET(getConcurrentQueryNumHelpersPerProcess), "7"},
    Valued{"unknown", "x", GET(getConcurrentQueryMaxNumHelpersPerReport), "1"},
    Valued{"RENQ.CONCURRENTQUERY.MAXNUMHELPERSPERREPORT", "3", GET(getConcurrentQueryMaxNumHelpersPerReport), "3"},
    Valued{"RENQ.EXCEL.XLS2007_DEFAULT_FONT_FACE", "Arial", GET(getExcelDefaultFontFace), "Arial"},
    Valued{"RENQ.EXCEL.XLS2007_DEFAULT_FONT_SIZE", "10.5pt", GET(getExcelDefaultFontSize), "10.500000"},
    Valued{"RENQ.EXCEL.XLS2007_DEFAULT_ROW_HEIGHT", "12.75", GET(getExcelDefaultRowHeight), "12.750000"},
    Valued{"unknown", "x", GET(getVirtualMappingMode), "1"},
    Valued{"RENQ.VIRTUAL.MAPPINGMODE", "offset", GET(getVirtualMappingMode), "0"},
    Valued{"RENQ.VIRTUAL.MAPPINGMODE", "Indirect", GET(getVirtualMappingMode), "1"},
    Valued{"RENQ.VIRTUAL.MAPPINGMODE", "DIRECT", GET(getVirtualMappingMode), "2"},
    Valued{"RENQ.VIRTUAL.MAPPINGMODE", "PagedIndex", GET(getVirtualMappingMode), "3"},
    Valued{"RENQ.VIRTUAL.MAPPINGMODE", "other", GET(getVirtualMappingMode), "1"}));
// clang-format on

TEST_P(OneSetting, IsReadFromItsText) {
    const Read settings(advanced(GetParam().name, GetParam().value));
    EXPECT_EQ(GetParam().get(*settings), GetParam().expected) << GetParam().name << "=" << GetParam().value;
}

TEST(MRLConfigSettings, LimitsHotSpotsByTheTypeOfTheServer) {
    struct Case {
        const char* type;
        const char* limit;
        int expected;
    };
    for (const auto& [type, limit, expected] : {Case{"Interactive", "12", 50}, Case{"interactive", "12", 12},
                                                Case{"", "-5", -1}, Case{"", "", -1}, Case{"", "7x", 7}}) {
        const Read settings(ConfigurationFile::parameter("reportServerType", type) +
                            ConfigurationFile::parameter("rsChartHotspotLimit", "50") +
                            ConfigurationFile::parameter("brsChartHotspotLimit", limit));
        EXPECT_EQ(settings->getChartHotSpotLimit(), expected) << type << " " << limit;
    }
}

TEST(MRLConfigSettings, AreForReportServersAloneButForTheEncodings) {
    const std::string parameters = advanced("RENQ.VIRTUAL.MAPPINGMODE", "DIRECT") +
                                   ConfigurationFile::parameter("emailEncoding", "ISO-8859-1") +
                                   ConfigurationFile::parameter("brsChartHotspotLimit", "3");
    EXPECT_EQ(Read(parameters, "renqx")->getVirtualMappingMode(), 2);
    const Read others(parameters, "MRL");
    EXPECT_EQ(others->getVirtualMappingMode(), 1);
    EXPECT_EQ(others->getChartHotSpotLimit(), -1);
    EXPECT_EQ(others->getCSVDelimiter(), 9U);
    EXPECT_EQ(others->getEmailEncoding(), "ISO-8859-1");
    ASSERT_NE(others->getCSVConverter(), nullptr);
    EXPECT_EQ(Read("")->getEmailEncoding(), "UTF-8");
    EXPECT_EQ(Read(ConfigurationFile::parameter("emailEncoding", ""))->getEmailEncoding(), "UTF-8");
}

TEST(MRLConfigSettings, TakeAdvancedSettingsThatAreXmlInAText) {
    const Read settings(ConfigurationFile::parameter(
        "advancedSettings", "&lt;s>&lt;p name='RENQ.CSV.DELIMITER'>,&lt;/p>&lt;/s>"));
    EXPECT_EQ(settings->getCSVDelimiter(), 44U);
}

TEST(MRLConfigSettings, AreOneSnapshotUntilTheyAreDeleted) {
    {
        const ConfigurationFile broken(
            ConfigurationFile::withParameters(ConfigurationFile::parameter("advancedSettings", "no XML")));
        expectAssert([] { Settings::getInstance("RENQ"); }, "HBL_ASSERT(status && !err);");
        ConfigurationFile::take("/nowhere/at.all");
        EXPECT_THROW(Settings::getInstance("RENQ"), HBLConfigurationError);
    }
    const Read first(advanced("RENQ.VIRTUAL.MAPPINGMODE", "DIRECT"));
    std::vector<std::jthread> threads;
    for (int i = 0; i < 4; ++i) {
        threads.emplace_back([&] { EXPECT_EQ(&Settings::getInstance("MRL"), &*first); });
    }
    threads.clear();
    Settings::deleteInstance();
    EXPECT_EQ(Settings::getInstance("MRL").getVirtualMappingMode(), 1);
}

TEST(MRLConfigSettings, HaveARowForToolsAndOneForPeopleForEveryName) {
    std::stringstream page;
    page << std::ifstream(MRL_RESOURCES "/../docs/configuration.md").rdbuf();
    std::vector<std::string> inRows;
    for (const MRLAdvancedSetting& setting : MRLAdvancedSetting::all()) {
        EXPECT_NE(page.str().find("\n| `" + std::string(setting.name) + "` | "), std::string::npos)
            << setting.name;
        if (setting.kind == MRLAdvancedSettingKind::eFlag) {
            inRows.emplace_back(setting.name);
        }
        if (setting.kind != MRLAdvancedSettingKind::eChoice) {
            continue;
        }
        std::stringstream values((std::string(setting.values)));
        for (std::string value; std::getline(values, value, '|');) {
            const Read settings(advanced(std::string(setting.name), value));
            EXPECT_TRUE(settings->getVirtualMappingMode() != 1 || settings->getPromptReconciliation() != 0 ||
                        value == "COMPLETE" || value == "0" || value == "INDIRECT")
                << setting.name << "=" << value;
        }
    }
    std::vector<std::string> flags;
    for (const Flag& flag : FLAGS) {
        flags.emplace_back(flag.name);
    }
    std::sort(inRows.begin(), inRows.end());
    std::sort(flags.begin(), flags.end());
    EXPECT_EQ(inRows, flags);
}

TEST(MRLConfigSettings, FindTheFirstChildByNameNamespaceAndAttribute) {
    const std::string xml = "<r xmlns:a='urn:a'><d><p n='1' id='deep'/></d>x<p n='0'/><p n='1' id='plain'/>"
                            "<a:p n='1' id='spaced'/></r>";
    HBLIDOM_Document document;
    ASSERT_EQ(HBLIDOM_Parser().parse(xml.data(), xml.size(), document), 1);
    const HBLIDOM_Element root = document.getDocumentElement();
    const auto find = [&](const I18NString* space, const char* value) {
        return Settings::findChildElementWithAttributeNS(root, space, "p", "n", value);
    };
    const I18NString space("urn:a");
    EXPECT_EQ(find(nullptr, "1").getAttribute("id"), "plain");
    EXPECT_EQ(find(&space, "1").getAttribute("id"), "spaced");
    EXPECT_TRUE(find(&space, "0").isNull());
    EXPECT_TRUE(
        Settings::findChildElementWithAttributeNS(find(nullptr, "1"), nullptr, "p", "n", "1").isNull());
}

} // namespace
