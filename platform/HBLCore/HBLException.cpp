#include "HBLCore/HBLException.h"

#include "HBLCore/HBLMessageString.h"

HBLException::HBLException(HBLSeverity severity, int errorCode) noexcept
    : HBLThrowable(errorCode)
    , m_severity(severity) {}

HBLException::HBLException(HBLSeverity severity, const char* text)
    : HBLException(severity, 0) {
    if (text)
        addMessage(HBLMessageString(text));
}

HBLSeverity HBLException::getSeverity() const {
    return m_severity;
}

const char* HBLException::getMessage(const char* language, std::string& text) const {
    text = format(language);
    return text.c_str();
}
