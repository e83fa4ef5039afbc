#include "HBLCFGAPI/HBLConfigurationDocument.h"

#include "HBLCFGAPI/HBLConfigurationError.h"
#include "HBLCFGAPI/detail/ConfigurationReader.h"
#include "HBLCore/HBLFailure.h"
#include "HBLIDOM/HBLIDOM_Parser.h"

#include <algorithm>

using mrl::detail::ConfigurationReader;
using Finding = HBLConfigurationFinding;

namespace {

/// Far more than any deployment needs, far less than what a wrong file may cost.
constexpr HBLIDOM_ParserLimits LIMITS{.elementDepth = ConfigurationReader::s_maximumDepth,
                                      .attributesOfElement = 64,
                                      .totalNodes = 200'000,
                                      .totalBytes = 4ULL * 1024 * 1024};

} // namespace

HBLConfigurationDocument HBLConfigurationDocument::read(const std::string& path) {
    HBLIDOM_Parser parser(HBLIDOM_Parser::eKeepPlaces);
    parser.setLimits(LIMITS);
    HBLIDOM_Document document;
    if (parser.parse(path.c_str(), document) == 0) {
        HBLConfigurationDocument unread;
        unread.m_findings.push_back(
            {Finding::eWrong,
             {path, parser.getCurrentLineNumber(), parser.getCurrentColumnNumber()},
             "expected an XML document with the root qzn:parameters: " + parser.errorString().toUtf8()});
        return unread;
    }
    return fromElement(document.getDocumentElement(), path);
}

HBLConfigurationDocument HBLConfigurationDocument::fromElement(const HBLIDOM_Element& root,
                                                               const std::string& source) {
    HBL_ASSERT(!root.isNull());
    HBLConfigurationDocument document;
    ConfigurationReader(document, source).readRoot(root);
    return document;
}

void HBLConfigurationDocument::requireSound() const {
    const auto isWrong = [](const Finding& finding) { return finding.weight == Finding::eWrong; };
    const auto first = std::ranges::find_if(m_findings, isWrong);
    if (first == m_findings.end()) {
        return;
    }
    const auto more = std::ranges::count_if(m_findings, isWrong) - 1;
    const std::string hint =
        more == 0 ? "" : " (and " + std::to_string(more) + " more; `mrl config check` lists them)";
    HBL_THROW(HBLConfigurationError(first->place, first->words + hint),
              "HBLConfigurationDocument::requireSound");
}
