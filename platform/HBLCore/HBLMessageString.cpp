#include "HBLCore/HBLMessageString.h"

#include "HBLCore/HBLFailure.h"

HBLMessageString::HBLMessageString(const char* utf8)
    : m_text(utf8 ? utf8 : "") {}
HBLMessageString::HBLMessageString(const std::string& utf8)
    : m_text(utf8) {}
HBLMessageString::HBLMessageString(const I18NString& text)
    : m_text(text.toUtf8()) {}

HBLMessageString* HBLMessageString::clone() const {
    return hblNew<HBLMessageString>(HBL_HERE, *this);
}

void HBLMessageString::format(const char*, std::string& text) const {
    text = m_text;
}
