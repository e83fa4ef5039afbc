#pragma once

#include "HBLCore/MRLExport.h"

#include <string>

/// A text for people, in the language they ask for.
class MRL_EXPORT HBLMessageBase {
public:
    virtual ~HBLMessageBase();

    /// A copy on the heap, owned by the caller.
    virtual HBLMessageBase* clone() const = 0;

    /// Sets `text` to the message in `language` ("en", "de-at"; null is the default language), UTF-8.
    /// Never fails over a missing text: see HBLMessage.
    virtual void format(const char* language, std::string& text) const = 0;

protected:
    HBLMessageBase() = default;
    HBLMessageBase(const HBLMessageBase&) = default;
    HBLMessageBase& operator=(const HBLMessageBase&) = default;
};
