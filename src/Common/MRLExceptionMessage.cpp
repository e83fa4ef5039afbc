#include "Common/MRLExceptionMessage.h"

#include "Common/MRLMessageNumbers.h"

#include "HBLCore/HBLFailure.h"

MRLExceptionMessage::MRLExceptionMessage(std::uint32_t number)
    : HBLMessage(msg::component, number) {}

MRLExceptionMessage::MRLExceptionMessage(const char* text)
    : HBLMessage(msg::component, 0)
    , m_text(text ? text : "") {}

MRLExceptionMessage* MRLExceptionMessage::clone() const {
    return hblNew<MRLExceptionMessage>(HBL_HERE, *this);
}

void MRLExceptionMessage::format(const char* language, std::string& text) const {
    if (getNumber() == 0)
        text = m_text;
    else
        HBLMessage::format(language, text);
}

const char* MRLExceptionMessage::getMessage(const char* language, std::uint32_t number, std::string& text) {
    text.clear();
    setMessage(number);
    format(language, text);
    return text.c_str();
}
