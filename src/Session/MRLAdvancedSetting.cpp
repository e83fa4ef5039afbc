#include "Session/MRLAdvancedSetting.h"

#include <array>

namespace {

using enum MRLAdvancedSettingKind;

constexpr std::array<MRLAdvancedSetting, 38> ALL{{
    {"RENQ.CSV.DELIMITER", eCharacter, "LOCALE"},
    {"RENQ.CSV.QUALIFIER", eCharacter, ""},
    {"RENQ.CSV.TERMINATOR", eCharacter, "CRLF|LFCR"},
    {"RENQ.CSV.MIMETYPE", eText, ""},
    {"RENQ.CSV.ENCODING", eText, ""},
    {"RENQ.CSV.REPEAT_XTAB_LABELS", eFlag, ""},
    {"RENQ.CSV.TRIMSPACES", eFlag, ""},
    {"RENQ.PARAMETERS.SAVE", eFlag, ""},
    {"RENQ.CHARTS.ALTERNATECOLOURS", eFlag, ""},
    {"EnableChartTransparencyIE", eFlag, ""},
    {"HyperlinkButtonNewWindow", eFlag, ""},
    {"HyperlinkMultipleToolbars", eFlag, ""},
    {"RENQ.FILE.EXTENSION.XLS", eFlag, ""},
    {"RENQ.NAVIGATION.LUMENA", eFlag, ""},
    {"RENQ.SELECTION_UI.enableWith", eText, ""},
    {"RENQ.EXCEL.DISPLAYHTML", eFlag, ""},
    {"RENQ.LAYOUTEXPRESSION.IGNOREERROR", eFlag, ""},
    {"RENQ.PROMPT.RENDERBATCH", eFlag, ""},
    {"RENQ.EXCEL.LEGACYROUNDING", eFlag, ""},
    {"RENQ.PROMPT.RECONCILIATION", eChoice, "COMPLETE|0|GROUPED|1|CHUNKED GROUPED|2|CHUNKED|3"},
    {"RENQ.PROMPT.RECONCILIATION.CHUNKSIZE", eNumber, ""},
    {"RENQ.XTAB.RENDER.IGNOREERROR", eFlag, ""},
    {"RENQ.PROMPT.ALLREMAININGOPTIONAL", eFlag, ""},
    {"RENQ.CONCURRENTQUERY.NUMHELPERSPERPROCESS", eNumber, ""},
    {"RENQ.CONCURRENTQUERY.MAXNUMHELPERSPERREPORT", eNumber, ""},
    {"RENQ.CONCURRENTQUERY.ENABLEDFORINTERACTIVEOUTPUT", eFlag, ""},
    {"RENQ.CHART.ZERO.TOLERANCE", eFlag, ""},
    {"RENQ.KALSA.SPECIAL.CELL.VALUES", eFlag, ""},
    {"RENQ.RENDER.IGNOREEMPTYDETAILPAGES", eFlag, ""},
    {"RENQ.CHART.LEGACYLABELS", eFlag, ""},
    {"RENQ.SOAP.CHECKACTION", eFlag, ""},
    {"RENQ.EXCEL.NUMBEREDSHEETNAMES", eFlag, ""},
    {"RENQ.EXCEL.XLS2007_DEFAULT_FONT_FACE", eText, ""},
    {"RENQ.EXCEL.XLS2007_DEFAULT_FONT_SIZE", eMeasure, ""},
    {"RENQ.EXCEL.XLS2007_DEFAULT_ROW_HEIGHT", eMeasure, ""},
    {"UPGRADEMANAGER.CLEANDIRECTORIES", eFlag, ""},
    {"UPGRADEMANAGER.ENABLELOGGING", eFlag, ""},
    {"RENQ.VIRTUAL.MAPPINGMODE", eChoice, "OFFSET|INDIRECT|DIRECT|PAGEDINDEX"},
}};

} // namespace

std::span<const MRLAdvancedSetting> MRLAdvancedSetting::all() {
    return ALL;
}
