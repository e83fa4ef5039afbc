#include "Session/MRLProperty.h"

#include "HBLCore/HBLUtCrc32.h"

#include <cstdlib>
#include <cstring>

const MRLProperty& MRLProperty::getInstance() {
    static const MRLProperty instance;
    return instance;
}

int MRLProperty::getValue(const char* name, I18NString& value) const {
    const PropertyValue* const found = find(name);
    if (found == nullptr) {
        return 0;
    }
    value = found->value;
    return 1;
}

int MRLProperty::getValue(const char* name, int& value) const {
    const PropertyValue* const found = findNumber(name);
    if (found == nullptr) {
        return 0;
    }
    value = static_cast<int>(std::strtol(found->value.toUtf8().c_str(), nullptr, 10));
    return 1;
}

int MRLProperty::getValue(const char* name, unsigned int& value) const {
    int number = 0;
    if (getValue(name, number) == 0) {
        return 0;
    }
    value = static_cast<unsigned int>(number);
    return 1;
}

const MRLProperty::PropertyValue* MRLProperty::find(const char* name) const {
    if (name == nullptr) {
        return nullptr;
    }
    const auto found = m_values.find(getKey(name));
    return found == m_values.end() ? nullptr : &found->second;
}

const MRLProperty::PropertyValue* MRLProperty::findNumber(const char* name) const {
    const PropertyValue* const found = find(name);
    return found != nullptr && found->isNumber != 0 ? found : nullptr;
}

std::uint32_t MRLProperty::getKey(const char* name) {
    return HBLUtCrc32::crc32(0, name, std::strlen(name));
}
