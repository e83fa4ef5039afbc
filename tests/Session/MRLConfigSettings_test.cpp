#include "Session/MRLAdvancedSetting.h"
#include "Session/MRLConfigSettings.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"
#include "support/Files.h"
#include "support/Table.h"
#include "support/Threads.h"
#include "support/Xml.h"

#include "HBLCFGAPI/HBLConfigurationError.h"

#include <gtest/gtest.h>

#include <set>
#include <sstream>

using Settings = MRLConfigSettings;

namespace {

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

private:
    ConfigurationFile m_file;
    const Settings* m_settings;
};

std::string advanced(const std::string& name, const std::string& value) {
    return ConfigurationFile::parameter("advancedSettings",
                                        "<qzn:setting name=\"" + name + "\">" + value + "</qzn:setting>");
}

/// "getter=value" for every getter.
std::set<std::string> all(const Settings& s) {
    std::set<std::string> values;
    const auto add = [&](const char* getter, const auto& value) {
        std::ostringstream text;
        text << getter << '=' << value;
        values.insert(text.str());
    };
    add("getCSVConverter", s.getCSVConverter() == nullptr ? "none" : s.getCSVConverter()->getName());
#define ADD(getter) add(#getter, s.getter())
    // clang-format off
    ADD(getCSVDelimiter); ADD(getCSVQualifier); ADD(getCSVTerminator); ADD(getCSVMime); ADD(getCSVRepeatXtabLabels);
    ADD(isCSVTrimSpaces); ADD(isParametersSave); ADD(isUseAlternateColours); ADD(isEnableChartTransparencyIE);
    ADD(isHyperlinkButtonNewWindow); ADD(isHyperlinkMultipleToolbars); ADD(isFileExtensionXLS); ADD(isNavigationLumena);
    ADD(getChartHotSpotLimit); ADD(getSelectionUIEnabled); ADD(getExcelDisplayHTML); ADD(getIgnoreExpressionError);
    ADD(getRenderPromptInBatch); ADD(getEmailEncoding); ADD(getLegacyRounding); ADD(getPromptReconciliation);
    ADD(getPromptReconciliationChunkSize); ADD(getIgnoreXtabRenderError); ADD(getGeneratePromptPageForOptionalParameters);
    ADD(getConcurrentQueryNumHelpersPerProcess); ADD(getConcurrentQueryMaxNumHelpersPerReport); ADD(getAxisLabelAsZero);
    ADD(getConcurrentQueryEnabedForInteractiveOutput); ADD(getKalsaSpecialCellValues); ADD(getIgnoreEmptyDetailPages);
    ADD(getUseChartLegacyLabelFunctionality); ADD(getFaultOnSoapActionMismatch); ADD(getUseExcelNumberedSheetNames);
    ADD(getExcelDefaultFontFace); ADD(getExcelDefaultFontSize); ADD(getExcelDefaultRowHeight); ADD(getVirtualMappingMode);
    ADD(getUpgradeManagerCleanDirectories); ADD(getUpgradeManagerEnableLogging);
    // clang-format on
    return values;
}

TEST(MRLConfigSettings, AreTheDefaultsButForWhatASettingChanges) {
    const std::set<std::string> defaults = all(*Read("").operator->());
    const std::string page = mrl::test::bytesOfFile(MRL_RESOURCES "/../docs/configuration.md");
    std::set<std::string> tried;
    for (const auto& row : mrl::test::table("settings.txt")) {
        const Read settings(row[0] == "*" ? "" : advanced(row[0], row[1]));
        std::string changed;
        for (const std::string& value : all(*settings.operator->())) {
            if (row[0] == "*" || !defaults.contains(value)) {
                changed += (changed.empty() ? "" : " ") + value;
            }
        }
        EXPECT_EQ(changed, row[2]) << row[0] << "=" << row[1];
        tried.insert(row[0]);
    }
    for (const MRLAdvancedSetting& setting : MRLAdvancedSetting::all()) { // the rows for tools and people
        EXPECT_TRUE(setting.name == "RENQ.CSV.TRIMSPACES" || tried.contains(std::string(setting.name)));
        EXPECT_NE(page.find("\n| `" + std::string(setting.name) + "` | "), std::string::npos) << setting.name;
    }
}

TEST(MRLConfigSettings, LimitHotSpotsByTheTypeOfTheServer) {
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
    EXPECT_NE(others->getCSVConverter(), nullptr);
    EXPECT_EQ(Read(ConfigurationFile::parameter("emailEncoding", ""))->getEmailEncoding(), "UTF-8");
    EXPECT_EQ(Read(ConfigurationFile::parameter("advancedSettings", // as XML in a text
                                                "&lt;s>&lt;p name='RENQ.CSV.DELIMITER'>,&lt;/p>&lt;/s>"))
                  ->getCSVDelimiter(),
              44U);
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
    mrl::test::inThreads(4, [&](int) { EXPECT_EQ(&Settings::getInstance("MRL"), first.operator->()); });
    Settings::deleteInstance();
    EXPECT_EQ(Settings::getInstance("MRL").getVirtualMappingMode(), 1);
}

TEST(MRLConfigSettings, FindTheFirstChildByNameNamespaceAndAttribute) {
    const std::string xml = "<r xmlns:a='urn:a'><d><p n='1' id='deep'/></d>x<p n='0'/><p n='1' id='plain'/>"
                            "<a:p n='1' id='spaced'/></r>";
    const HBLIDOM_Document document = mrl::test::parsed(xml);
    const auto find = [&](const I18NString* space, const char* value) {
        return Settings::findChildElementWithAttributeNS(document.getDocumentElement(), space, "p", "n",
                                                         value);
    };
    const I18NString space("urn:a");
    EXPECT_EQ(find(nullptr, "1").getAttribute("id"), "plain");
    EXPECT_EQ(find(&space, "1").getAttribute("id"), "spaced");
    EXPECT_TRUE(find(&space, "0").isNull());
}

} // namespace
