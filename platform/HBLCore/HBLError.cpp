#include "HBLCore/HBLError.h"

#include <new>

HBLError::HBLError(int errorCode, const char* text, const char* fallback)
    : HBLThrowable(errorCode)
    , m_fallback(fallback) {
    if (!text)
        return;
    try {
        m_ownText = std::make_shared<const std::string>(text);
    } catch (const std::bad_alloc&) { // reads as the fallback
    }
}

const char* HBLError::getText() const noexcept {
    return m_ownText ? m_ownText->c_str() : m_fallback;
}

const char* HBLError::getMessage(const char*, std::string& text) const {
    text = getText();
    return text.c_str();
}
