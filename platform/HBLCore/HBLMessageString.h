#pragma once

#include "HBLCore/HBLMessageBase.h"
#include "HBLCore/I18NString.h"

#include <string>

/// A message that is its own text, the same in every language.
class MRL_EXPORT HBLMessageString : public HBLMessageBase {
public:
    explicit HBLMessageString(const char* utf8); // null is empty
    explicit HBLMessageString(const std::string& utf8);
    explicit HBLMessageString(const I18NString& text);

    HBLMessageString* clone() const override;
    void format(const char* language, std::string& text) const override;

private:
    std::string m_text;
};
