#include "HBLCore/HBLThrowable.h"

#include "HBLCore/detail/XmlText.h"

#include <cstdio>
#include <new>

using mrl::detail::appendXmlText;

HBLThrowable::~HBLThrowable() = default;

// Copying happens while an exception is thrown, perhaps because memory is out: it must not fail.
HBLThrowable::HBLThrowable(const HBLThrowable& other) noexcept
    : m_errorCode(other.m_errorCode) {
    transferBackTrace(other);
}

HBLThrowable& HBLThrowable::operator=(const HBLThrowable& other) noexcept {
    if (this != &other) {
        m_errorCode = other.m_errorCode;
        m_backTrace.clear();
        transferBackTrace(other);
    }
    return *this;
}

void HBLThrowable::transferBackTrace(const HBLThrowable& other) noexcept {
    try {
        // By index and with a fixed end: `other` may be this object.
        const std::size_t count = other.m_backTrace.size();
        m_backTrace.reserve(m_backTrace.size() + count);
        for (std::size_t i = 0; i < count; ++i)
            m_backTrace.push_back(other.m_backTrace[i]);
    } catch (const std::bad_alloc&) { // as many as there is room for
    }
}

void HBLThrowable::addBackTrace(const HBLFileLocation& where, const char* function,
                                const char* macro) noexcept {
    try {
        std::string entry = where.getFile() ? where.getFile() : "?";
        entry.append(":").append(std::to_string(where.getLine())).append(":");
        if (function)
            entry.append(" ").append(function);
        if (macro)
            entry.append(" [").append(macro).append("]");
        m_backTrace.push_back(std::move(entry));
    } catch (const std::bad_alloc&) { // the failure on its way matters more than this entry
    }
}

const char* HBLThrowable::getErrorCodePrefix() const {
    return "HBL-COR";
}

std::string HBLThrowable::getErrorCodeString() const {
    char digits[16];
    std::snprintf(digits, sizeof digits, "-%04d", m_errorCode);
    return getErrorCodePrefix() + std::string(digits);
}

HBLSeverity HBLThrowable::getSeverity() const {
    return eHBLSeverityError;
}

const char* HBLThrowable::getSeverityName(HBLSeverity severity) noexcept {
    switch (severity) {
    case eHBLSeverityFatal: return "fatal";
    case eHBLSeverityError: return "error";
    case eHBLSeverityWarning: return "warning";
    case eHBLSeverityInformation: return "information";
    }
    return "unknown";
}

const char* HBLThrowable::getMessage() const {
    return getMessage(nullptr, m_message);
}

const char* HBLThrowable::toString() {
    return toString(eHBLTextPlain, nullptr, m_text, 1);
}

const char* HBLThrowable::toString(HBLTextFormat format, const char* language, std::string& text,
                                   int withBackTrace) const {
    std::string message;
    getMessage(language, message);
    std::string out;
    if (format == eHBLTextXml) {
        out.append("<Exception Name=\"").append(getThrowableName()).append("\">");
        out.append("<Error>").append(getErrorCodeString()).append("</Error>");
        out.append("<Severity>").append(getSeverityName(getSeverity())).append("</Severity>");
        appendXmlText(out.append("<Messages>"), message);
        out.append("</Messages>");
        if (withBackTrace) {
            out.append("<TraceInfo>");
            for (const std::string& entry : m_backTrace) {
                appendXmlText(out.append("<Trace Text=\""), entry);
                out.append("\"/>");
            }
            out.append("</TraceInfo>");
        }
        out.append("</Exception>");
    } else {
        out.append(getThrowableName()).append(" ").append(getErrorCodeString());
        out.append(" (").append(getSeverityName(getSeverity())).append("): ").append(message);
        if (withBackTrace)
            for (const std::string& entry : m_backTrace)
                out.append("\n  at ").append(entry);
    }
    text = std::move(out);
    return text.c_str();
}
