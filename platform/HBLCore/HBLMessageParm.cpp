#include "HBLCore/HBLMessageParm.h"

HBLMessageParm::HBLMessageParm(const I18NString& text)
    : m_text(text) {}
HBLMessageParm::HBLMessageParm(const std::string& utf8)
    : m_text(utf8) {}
HBLMessageParm::HBLMessageParm(const char* utf8)
    : m_text(utf8) {}
HBLMessageParm::HBLMessageParm(std::string_view utf8)
    : m_text(utf8) {}
