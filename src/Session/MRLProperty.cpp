#include "Session/MRLProperty.h"

#include "Session/MRLPropertyFile.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmDir.h"
#include "HBLCore/HBLThreadGuard.h"
#include "HBLCore/HBLUtCrc32.h"
#include "HBLIDOM/HBLIDOM_DOMImplementation.h"
#include "HBLIDOM/HBLIDOM_Helper.h"
#include "HBLIDOM/HBLIDOM_Parser.h"

#include <cstdlib>
#include <cstring>
#include <optional>

std::atomic<MRLProperty*> MRLProperty::s_instance = nullptr;
HBLThreadCriticalSection MRLProperty::s_lock;

namespace {

constexpr const char* SOURCE = "../Session/MRLProperty";

} // namespace

const MRLProperty& MRLProperty::getInstance() {
    if (const MRLProperty* const made = s_instance.load(std::memory_order_acquire)) {
        return *made;
    }
    const HBLThreadGuard guard(s_lock);
    if (const MRLProperty* const made = s_instance.load(std::memory_order_relaxed)) {
        return *made;
    }
    return hblRethrowing(
        "MRLProperty::getInstance",
        []() -> const MRLProperty& {
            std::unique_ptr<MRLProperty> loading(new MRLProperty);
            loading->load();
            s_instance.store(loading.get(), std::memory_order_release);
            return *loading.release();
        },
        HBLFileLocation(SOURCE, __LINE__));
}

void MRLProperty::deleteInstance() {
    const HBLThreadGuard guard(s_lock);
    destroyInstance();
}

void MRLProperty::destroyInstance() {
    const std::unique_ptr<MRLProperty> ended(s_instance.exchange(nullptr));
}

void MRLProperty::setConfigFile(std::string path) {
    deleteInstance();
    configFile() = std::move(path);
}

std::string& MRLProperty::configFile() {
    static std::string path = MRLPropertyFile::s_location;
    return path;
}

void MRLProperty::load() {
    std::string path = configFile();
    HBLFmDir::resolveEffectivePath(path);
    if (HBLFmDir::exists(path.c_str(), HBLFmDir::eReadableFile) == 0) {
        return;
    }
    HBLIDOM_Parser parser;
    parser.setLimits(MRLPropertyFile::s_limits);
    HBLIDOM_Document document = HBLIDOM_DOMImplementation::getInstance().createDocument();
    if (parser.parse(path.c_str(), document) == 0) {
        return;
    }
    HBLIDOM_TreeWalker walker = document.createTreeWalker(document.getDocumentElement());
    for (HBLIDOM_Node entry = walker.firstChild(); entry.isNull() == 0; entry = walker.nextSibling()) {
        loadEntry(entry);
    }
}

void MRLProperty::loadEntry(const HBLIDOM_Node& entry) {
    std::optional<I18NString> name;
    std::unique_ptr<PropertyValue> value;
    for (HBLIDOM_Node node = entry.getFirstChild(); node.isNull() == 0; node = node.getNextSibling()) {
        if (node.getNodeType() != HBLIDOM_Node::ELEMENT_NODE) {
            continue;
        }
        const HBLIDOM_Element element(node);
        const I18NString tag = element.getTagName();
        if (tag == "property") {
            name = HBLIDOM_Helper::getElementText(element);
        } else if (tag == "value") {
            value.reset(hblNew<PropertyValue>(HBLFileLocation(SOURCE, __LINE__)));
            value->setValue(HBLIDOM_Helper::getElementText(element));
            value->setIsNumber(element.getAttributeNS("", "type") == "long" ? 1 : 0);
        }
        if (name && value) {
            m_values.emplace(getKey(name->c_str()), std::move(value)); // the first of a name stays
            name.reset();
            value.reset();
        }
    }
}

int MRLProperty::getValue(const char* name, I18NString& value) const {
    const PropertyValue* const found = find(name);
    if (found == nullptr) {
        return 0;
    }
    value = found->getValue();
    return 1;
}

int MRLProperty::getValue(const char* name, int& value) const {
    const PropertyValue* const found = findNumber(name);
    if (found == nullptr) {
        return 0;
    }
    value = static_cast<int>(std::atol(found->getValue().c_str()));
    return 1;
}

int MRLProperty::getValue(const char* name, unsigned int& value) const {
    const PropertyValue* const found = findNumber(name);
    if (found == nullptr) {
        return 0;
    }
    value = static_cast<unsigned int>(std::atol(found->getValue().c_str()));
    return 1;
}

void MRLProperty::setValue(const char* rProperty, const I18NString& value, int isNumber) {
    HBL_ASSERT(rProperty);
    std::unique_ptr<PropertyValue>& slot = m_values[getKey(rProperty)];
    if (slot == nullptr) {
        slot.reset(hblNew<PropertyValue>(HBLFileLocation(SOURCE, __LINE__)));
    }
    slot->setIsNumber(isNumber);
    slot->setValue(value);
}

const MRLProperty::PropertyValue* MRLProperty::find(const char* name) const {
    if (name == nullptr) {
        return nullptr;
    }
    const auto found = m_values.find(getKey(name));
    return found == m_values.end() ? nullptr : found->second.get();
}

const MRLProperty::PropertyValue* MRLProperty::findNumber(const char* name) const {
    const PropertyValue* const found = find(name);
    return found != nullptr && found->getIsNumber() != 0 ? found : nullptr;
}

unsigned int MRLProperty::getKey(const char* rProperty) {
    HBL_ASSERT(rProperty);
    return HBLUtCrc32::crc32(0, rProperty, std::strlen(rProperty));
}
