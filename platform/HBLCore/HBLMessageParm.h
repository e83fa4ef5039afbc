#pragma once

#include "HBLCore/I18NString.h"
#include "HBLCore/MRLExport.h"

#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>

/// One parameter of a message: a text or a whole number. Converts implicitly, so that a throw site
/// reads `MRLHBLMessage(number) << name << count`.
class MRL_EXPORT HBLMessageParm {
public:
    /// How a number reads.
    enum eNumberForm : int {
        eLocal = 1,  ///< with the digits and grouping of the language
        eDigits = 2, ///< digits alone: lines, columns, codes
    };

    HBLMessageParm(const I18NString& text);
    HBLMessageParm(const std::string& utf8);
    HBLMessageParm(std::string_view utf8);
    HBLMessageParm(const char* utf8); // null is empty
    template <std::integral T>
    HBLMessageParm(T number, eNumberForm form = eDigits)
        : m_number(static_cast<std::int64_t>(number))
        , m_local(form == eLocal) {
        if (!m_local)
            m_text = I18NString(std::to_string(number));
    }

    /// True for a number that the language is to format.
    bool isLocalNumber() const noexcept { return m_local; }
    std::int64_t getNumber() const noexcept { return m_number; }
    const I18NString& getText() const noexcept { return m_text; }

private:
    I18NString m_text;
    std::int64_t m_number = 0;
    bool m_local = false;
};
