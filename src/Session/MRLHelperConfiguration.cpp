#include "I18NRes/MRLI18NRes.h"
#include "Session/MRLConfigSettings.h"
#include "Session/MRLHelper.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLThreadGuard.h"
#include "HBLIDOM/HBLIDOM.h"

#include <cstdlib>

std::string MRLHelper::s_sUserSpecifiedURI;
HBLThreadCriticalSection MRLHelper::s_sUserSpecifiedURILock;

namespace {

constexpr unsigned int INACTIVITY_TIMEOUT = 3600; // seconds

I18NString propertyText(const I18NString& name) {
    return HBLConfigurationFactory::getInstance().getProperty(name);
}

HBLIDOM_Element propertyTree(const I18NString& name) {
    return HBLIDOM_Element(HBLConfigurationFactory::getInstance().getPropertyElement(name));
}

} // namespace

void MRLHelper::getContentManagerURI(I18NString& uri) {
    I18NString contentManagerURI = propertyText(MRLI18NRes::getString(MRLI18NRes::eContentManager));
    if (contentManagerURI.empty()) {
        const HBLIDOM_Element managers = propertyTree(MRLI18NRes::getString(MRLI18NRes::eContentManagers));
        const HBLIDOM_Element first =
            managers.isNull() != 0 ? managers : HBLIDOM_Helper::findFirstElement(managers, "qzn:item");
        if (first.isNull() == 0) {
            contentManagerURI = HBLIDOM_Helper::getElementText(first);
        }
    }
    HBL_ASSERT_NAMED(!contentManagerURI.empty(), "Content Manager URI not found in configuration");
    uri = contentManagerURI;
}

void MRLHelper::getDispatcherURI(I18NString& uri, int internalOnly) {
    I18NString dispatcherURI = propertyText(MRLI18NRes::getString(MRLI18NRes::eInternalDispatcher));
    for (const auto name : {MRLI18NRes::eExternalDispatcher, MRLI18NRes::eSdk}) {
        if (dispatcherURI.empty() && internalOnly == 0) {
            dispatcherURI = propertyText(MRLI18NRes::getString(name));
        }
    }
    HBL_ASSERT_NAMED(!dispatcherURI.empty(), "Dispatcher URI not found in configuration");
    uri = dispatcherURI;
}

void MRLHelper::getUserSpecifiedURI(std::string& uri) {
    const HBLThreadGuard guard(s_sUserSpecifiedURILock);
    uri = s_sUserSpecifiedURI;
}

void MRLHelper::setUserSpecifiedURI(const std::string& uri) {
    const HBLThreadGuard guard(s_sUserSpecifiedURILock);
    s_sUserSpecifiedURI = uri;
}

unsigned int MRLHelper::getLumenaInactivityTimeout() {
    const I18NString& space = MRLI18NRes::getString(MRLI18NRes::eConfigNamespace);
    const HBLIDOM_Element tree = propertyTree(MRLI18NRes::getString(MRLI18NRes::eAAA));
    if (tree.isNull() != 0) {
        return INACTIVITY_TIMEOUT;
    }
    const HBLIDOM_Element parameter = MRLConfigSettings::findChildElementWithAttributeNS(
        tree, &space, MRLI18NRes::getString(MRLI18NRes::eParameter), MRLI18NRes::getString(MRLI18NRes::eName),
        MRLI18NRes::getString(MRLI18NRes::eInactivityTimeout));
    if (parameter.isNull() != 0) {
        return INACTIVITY_TIMEOUT;
    }
    const HBLIDOM_Element value =
        HBLIDOM_Helper::findFirstElementNS(parameter, space, MRLI18NRes::getString(MRLI18NRes::eValue));
    if (value.isNull() != 0) {
        return INACTIVITY_TIMEOUT;
    }
    return static_cast<unsigned int>(std::atol(HBLIDOM_Helper::getElementText(value).c_str()));
}

void MRLHelper::getPdfSecurityAlgorithm(std::string& algorithm) {
    algorithm = "RC4";
    const std::string text = propertyText("CRYPTO").toUtf8();
    HBLIDOM_Document document;
    parseXML(text.c_str(), text.size(), document);
    HBLIDOM_Element at = HBLIDOM_Helper::findChildElement(document, "qzn:value");
    struct Step {
        const char* element;
        const char* name;
    };
    for (const auto& [element, name] :
         {Step{"qzn:instances", "cryptoProvider"}, Step{"qzn:instance", "Vantor"},
          Step{"qzn:parameter", "PDFConfidentialityAlgorithm"}}) {
        if (at.isNull() == 0) {
            at = HBLIDOM_Helper::findElementWithAttribute(at, element, "name", name);
        }
    }
    const HBLIDOM_Element value = at.isNull() != 0 ? at : HBLIDOM_Helper::findChildElement(at, "qzn:value");
    if (value.isNull() == 0) {
        algorithm = HBLIDOM_Helper::getElementText(value).toUtf8();
    }
}

void MRLHelper::getXMLSessionConfigDoc(const char* serviceId, std::string& out) {
    out = "<sessionConfigDocument><serviceID>";
    if (serviceId != nullptr) {
        out += serviceId;
    }
    out += "</serviceID></sessionConfigDocument>";
}
