#include "Session/MRLConfigSettings.h"

#include "I18NRes/MRLI18NRes.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLThreadGuard.h"
#include "HBLIDOM/HBLIDOM.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <strings.h>

std::atomic<MRLConfigSettings*> MRLConfigSettings::s_instance = nullptr;
HBLThreadCriticalSection MRLConfigSettings::s_lock;

namespace {

constexpr const char* SOURCE = "../Session/MRLConfigSettings";
constexpr const char* DEFAULT_CSV_ENCODING = "UTF16_LittleEndian";
constexpr std::uint32_t TAB = 9;
constexpr std::uint32_t QUOTATION_MARK = 34;
constexpr char16_t LINE_FEED = 10;

bool equal(const std::string& text, const char* name) {
    return ::strcasecmp(text.c_str(), name) == 0;
}

} // namespace

MRLConfigSettings::MRLConfigSettings(const I18NString& componentName)
    : m_componentName(componentName) {}

MRLConfigSettings::~MRLConfigSettings() = default;

MRLConfigSettings& MRLConfigSettings::getInstance(const I18NString& componentName) {
    if (MRLConfigSettings* const made = s_instance.load(std::memory_order_acquire)) {
        return *made;
    }
    const HBLThreadGuard guard(s_lock);
    if (MRLConfigSettings* const made = s_instance.load(std::memory_order_relaxed)) {
        return *made;
    }
    return hblRethrowing(
        "MRLConfigSettings::getInstance",
        [&]() -> MRLConfigSettings& {
            std::unique_ptr<MRLConfigSettings> reading(new MRLConfigSettings(componentName));
            reading->readSettings();
            s_instance.store(reading.get(), std::memory_order_release);
            return *reading.release();
        },
        HBLFileLocation(SOURCE, __LINE__));
}

void MRLConfigSettings::deleteInstance() {
    const HBLThreadGuard guard(s_lock);
    const std::unique_ptr<MRLConfigSettings> ended(s_instance.exchange(nullptr));
}

bool MRLConfigSettings::isReportServer() const {
    return ::strncasecmp(m_componentName.c_str(), "RENQ", 4) == 0;
}

void MRLConfigSettings::readSettings() {
    IHBLConfiguration& configuration = HBLConfigurationFactory::getInstance();
    configuration.load();
    if (isReportServer()) {
        readHotSpotLimit();
    }
    std::string csvEncoding;
    int delimiterFromLocale = 0;
    readAdvancedSettings(csvEncoding, delimiterFromLocale);
    if (m_csvDelimiter == 0 && delimiterFromLocale == 0) {
        m_csvDelimiter = TAB;
    }
    if (m_csvQualifier == 0) {
        m_csvQualifier = QUOTATION_MARK;
    }
    if (m_csvTerminator.empty()) {
        m_csvTerminator.append(LINE_FEED);
    }
    m_emailEncoding = configuration.getProperty("emailEncoding");
    if (m_emailEncoding.empty()) {
        m_emailEncoding = MRLI18NRes::getString(MRLI18NRes::eUtf8);
    }
    makeCsvConverter(std::move(csvEncoding));
}

void MRLConfigSettings::readHotSpotLimit() {
    const IHBLConfiguration& configuration = HBLConfigurationFactory::getInstance();
    const bool isInteractive =
        configuration.getProperty(MRLI18NRes::getString(MRLI18NRes::eReportServerType)) ==
        MRLI18NRes::getString(MRLI18NRes::eInteractive);
    const I18NString limit =
        configuration.getProperty(isInteractive ? "rsChartHotspotLimit" : "brsChartHotspotLimit");
    if (!limit.empty()) {
        m_chartHotSpotLimit = static_cast<int>(
            std::clamp(std::atol(limit.c_str()), -1L, long{std::numeric_limits<int>::max()}));
    }
}

void MRLConfigSettings::readAdvancedSettings(std::string& csvEncoding, int& delimiterFromLocale) {
    const std::string text = I18NConverter("utf-8").fromUnicode(
        HBLConfigurationFactory::getInstance().getProperty("advancedSettings"));
    if (text.empty()) {
        return;
    }
    HBLIDOM_Parser parser;
    HBLIDOM_Document document;
    const int status = parser.parse(text.data(), text.size(), document);
    const int err = parser.getErrorCode();
    HBL_ASSERT(status && !err);
    HBLIDOM_TreeWalker walker = document.createTreeWalker(document.getDocumentElement());
    for (HBLIDOM_Node node = walker.firstChild(); node.isNull() == 0; node = walker.nextSibling()) {
        const HBLIDOM_Element setting(node);
        setAdvancedSetting(setting.getAttribute(MRLI18NRes::getString(MRLI18NRes::eName)),
                           HBLIDOM_Helper::getElementText(setting), csvEncoding, delimiterFromLocale);
    }
}

void MRLConfigSettings::makeCsvConverter(std::string encoding) {
    if (encoding.empty()) {
        encoding = DEFAULT_CSV_ENCODING;
    }
    if (equal(encoding, "LOCALE")) {
        return;
    }
    try {
        m_CSV_CONVERTER.reset(hblNew<I18NConverter>(HBLFileLocation(SOURCE, __LINE__), encoding.c_str()));
    } catch (...) { // a slip in the configuration may not keep the server from starting
        m_CSV_CONVERTER.reset();
    }
    if (m_CSV_CONVERTER == nullptr) {
        m_CSV_CONVERTER.reset(hblNew<I18NConverter>(HBLFileLocation(SOURCE, __LINE__), DEFAULT_CSV_ENCODING));
        HBL_ASSERT(m_CSV_CONVERTER);
    }
}

// A handle by value is part of the interface. NOLINTNEXTLINE(performance-unnecessary-value-param)
HBLIDOM_Element MRLConfigSettings::findChildElementWithAttributeNS(HBLIDOM_Node parent,
                                                                   const I18NString* namespaceUri,
                                                                   const I18NString& localName,
                                                                   const I18NString& attributeName,
                                                                   const I18NString& attributeValue) {
    for (HBLIDOM_Node child = parent.getFirstChild(); child.isNull() == 0; child = child.getNextSibling()) {
        if (child.getNodeType() != HBLIDOM_Node::ELEMENT_NODE) {
            continue;
        }
        HBLIDOM_Element element(child);
        if (HBLIDOM_Helper::matchLocalName(element, localName) != 0 &&
            (namespaceUri == nullptr || HBLIDOM_Helper::matchNamespaceURI(element, *namespaceUri) != 0) &&
            element.getAttribute(attributeName) == attributeValue) {
            return element;
        }
    }
    return {};
}
