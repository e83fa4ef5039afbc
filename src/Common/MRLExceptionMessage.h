#pragma once

#include "HBLCore/HBLMessage.h"

#include <cstdint>
#include <string>

/// A message of the toolkit's catalogue whose text is wanted outside an exception, or a text of its own.
class MRL_EXPORT MRLExceptionMessage : public HBLMessage {
public:
    explicit MRLExceptionMessage(std::uint32_t number);
    /// Reads as `text` in every language until getMessage() or setMessage() gives it a number; null is
    /// empty.
    explicit MRLExceptionMessage(const char* text);

    MRLExceptionMessage* clone() const override;
    void format(const char* language, std::string& text) const override;

    /// Empties `text`, takes `number`, and sets `text` to the message in `language` (null is the
    /// default language), UTF-8, with the parameters added so far.
    /// @return the characters of `text`.
    const char* getMessage(const char* language, std::uint32_t number, std::string& text);

private:
    std::string m_text; // what it reads as while it has no number
};
