// One advanced setting: from its name and text to its field.

#include "Session/MRLConfigSettings.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <strings.h>

struct MRLConfigSettings::Tables {
    struct Flag {
        const char* name;
        int MRLConfigSettings::*field;
    };
    using Self = MRLConfigSettings;

    static constexpr std::array<Flag, 24> FLAGS{{
        {"RENQ.CSV.REPEAT_XTAB_LABELS", &Self::m_csvRepeatXtabLabels},
        {"RENQ.CSV.TRIMSPACES", &Self::m_csvTrimSpaces},
        {"RENQ.PARAMETERS.SAVE", &Self::m_parametersSave},
        {"RENQ.CHARTS.ALTERNATECOLOURS", &Self::m_useAlternateColours},
        {"EnableChartTransparencyIE", &Self::m_enableChartTransparencyIE},
        {"HyperlinkButtonNewWindow", &Self::m_hyperlinkButtonNewWindow},
        {"HyperlinkMultipleToolbars", &Self::m_hyperlinkMultipleToolbars},
        {"RENQ.FILE.EXTENSION.XLS", &Self::m_fileExtensionXLS},
        {"RENQ.NAVIGATION.LUMENA", &Self::m_navigationLumena},
        {"RENQ.EXCEL.DISPLAYHTML", &Self::m_excelDisplayHTML},
        {"RENQ.LAYOUTEXPRESSION.IGNOREERROR", &Self::m_ignoreExpressionError},
        {"RENQ.PROMPT.RENDERBATCH", &Self::m_renderPromptInBatch},
        {"RENQ.EXCEL.LEGACYROUNDING", &Self::m_legacyRounding},
        {"RENQ.XTAB.RENDER.IGNOREERROR", &Self::m_ignoreXtabRenderError},
        {"RENQ.PROMPT.ALLREMAININGOPTIONAL", &Self::m_generatePromptPageForOptionalParameters},
        {"RENQ.CONCURRENTQUERY.ENABLEDFORINTERACTIVEOUTPUT",
         &Self::m_concurrentQueryEnabledForInteractiveOutput},
        {"RENQ.CHART.ZERO.TOLERANCE", &Self::m_axisLabelAsZero},
        {"RENQ.KALSA.SPECIAL.CELL.VALUES", &Self::m_kalsaSpecialCellValues},
        {"RENQ.RENDER.IGNOREEMPTYDETAILPAGES", &Self::m_ignoreEmptyDetailPages},
        {"RENQ.CHART.LEGACYLABELS", &Self::m_useChartLegacyLabelFunctionality},
        {"RENQ.SOAP.CHECKACTION", &Self::m_faultOnSoapActionMismatch},
        {"RENQ.EXCEL.NUMBEREDSHEETNAMES", &Self::m_useExcelNumberedSheetNames},
        {"UPGRADEMANAGER.CLEANDIRECTORIES", &Self::m_upgradeManagerCleanDirectories},
        {"UPGRADEMANAGER.ENABLELOGGING", &Self::m_upgradeManagerEnableLogging},
    }};
};

namespace {

struct Choice {
    const char* text;
    int value;
};

constexpr std::array<Choice, 8> RECONCILIATIONS{{{"COMPLETE", 0},
                                                 {"0", 0},
                                                 {"GROUPED", 1},
                                                 {"1", 1},
                                                 {"CHUNKED GROUPED", 2},
                                                 {"2", 2},
                                                 {"CHUNKED", 3},
                                                 {"3", 3}}};

constexpr std::array<Choice, 4> MAPPING_MODES{
    {{"OFFSET", 0}, {"INDIRECT", 1}, {"DIRECT", 2}, {"PAGEDINDEX", 3}}};

constexpr std::array<Choice, 3> CHARACTERS{{{"TAB", 9}, {"CR", 13}, {"LF", 10}}};

bool equal(const char* a, const char* b) {
    return ::strcasecmp(a, b) == 0;
}

template <std::size_t N>
int chosen(const char* text, const std::array<Choice, N>& choices, int otherwise) {
    const auto found =
        std::ranges::find_if(choices, [&](const Choice& choice) { return equal(choice.text, text); });
    return found == choices.end() ? otherwise : found->value;
}

/// The first character of a text that is not empty.
std::uint32_t firstCodePoint(const I18NString& text) {
    const char16_t first = text[0];
    const char16_t second = text.length() > 1 ? text[1] : u'\0';
    const bool isPair = (first & 0xFC00) == 0xD800 && (second & 0xFC00) == 0xDC00;
    return isPair ? 0x10000U + ((first & 0x3FFU) << 10) + (second & 0x3FFU) : first;
}

/// A named character, or the first one; `otherwise` for an empty text.
std::uint32_t characterCode(const I18NString& text, std::uint32_t otherwise) {
    if (text.empty()) {
        return otherwise;
    }
    const int named = chosen(text.c_str(), CHARACTERS, 0);
    return named != 0 ? static_cast<std::uint32_t>(named) : firstCodePoint(text);
}

I18NString terminator(const I18NString& text) {
    if (equal(text.c_str(), "CRLF")) {
        return u"\r\n";
    }
    if (equal(text.c_str(), "LFCR")) {
        return u"\n\r";
    }
    if (const int named = chosen(text.c_str(), CHARACTERS, 0); named != 0) {
        return I18NString().append(static_cast<char16_t>(named));
    }
    return text.empty() ? text : text.substr(0, firstCodePoint(text) > 0xFFFF ? 2 : 1);
}

int chunkSize(const char* text) {
    constexpr int DEFAULT = 5;
    long size = 0;
    if (std::sscanf(text, "%ld", &size) != 1 || size <= 0) {
        return DEFAULT;
    }
    return static_cast<int>(std::min(size, long{std::numeric_limits<int>::max()}));
}

} // namespace

void MRLConfigSettings::setAdvancedSetting(const I18NString& name, const I18NString& value,
                                           std::string& csvEncoding, int& delimiterFromLocale) {
    if (!isReportServer()) {
        return;
    }
    const char* const text = value.c_str();
    const auto is = [&](const char* known) { return equal(name.c_str(), known); };
    const auto flag = std::ranges::find_if(Tables::FLAGS, [&](const auto& row) { return is(row.name); });
    if (flag != Tables::FLAGS.end()) {
        this->*flag->field = equal(text, "TRUE") ? 1 : 0;
    } else if (is("RENQ.CSV.ENCODING")) {
        csvEncoding = value.toUtf8();
    } else if (is("RENQ.CSV.DELIMITER")) {
        if (equal(text, "LOCALE")) {
            delimiterFromLocale = 1;
        } else {
            m_csvDelimiter = characterCode(value, m_csvDelimiter);
        }
    } else if (is("RENQ.CSV.QUALIFIER")) {
        m_csvQualifier = characterCode(value, m_csvQualifier);
    } else if (is("RENQ.CSV.TERMINATOR")) {
        m_csvTerminator = terminator(value);
    } else if (is("RENQ.CSV.MIMETYPE")) {
        m_csvMime = value;
    } else if (is("RENQ.SELECTION_UI.enableWith")) {
        m_selectionUIEnabled = equal(text, "DRILL") ? eMRLSelectionUIDrill : eMRLSelectionUINone;
    } else if (is("RENQ.PROMPT.RECONCILIATION")) {
        m_promptReconciliation = static_cast<MRLPromptReconciliation>(chosen(text, RECONCILIATIONS, 0));
    } else if (is("RENQ.PROMPT.RECONCILIATION.CHUNKSIZE")) {
        m_promptReconciliationChunkSize = chunkSize(text);
    } else if (is("RENQ.CONCURRENTQUERY.NUMHELPERSPERPROCESS")) {
        m_concurrentQueryNumHelpersPerProcess = static_cast<unsigned int>(std::atoi(text));
    } else if (is("RENQ.CONCURRENTQUERY.MAXNUMHELPERSPERREPORT")) {
        m_concurrentQueryMaxNumHelpersPerReport = static_cast<unsigned int>(std::atoi(text));
    } else if (is("RENQ.EXCEL.XLS2007_DEFAULT_FONT_FACE")) {
        m_excelDefaultFontFace = value;
    } else if (is("RENQ.EXCEL.XLS2007_DEFAULT_FONT_SIZE")) {
        m_excelDefaultFontSize = static_cast<float>(std::atof(text));
    } else if (is("RENQ.EXCEL.XLS2007_DEFAULT_ROW_HEIGHT")) {
        m_excelDefaultRowHeight = static_cast<float>(std::atof(text));
    } else if (is("RENQ.VIRTUAL.MAPPINGMODE")) {
        m_virtualMappingMode = chosen(text, MAPPING_MODES, m_virtualMappingMode);
    }
}
