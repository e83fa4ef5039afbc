#pragma once

#include "HBLCore/HBLMessageSet.h"
#include "HBLCore/HBLThrowable.h"

#include <string>

/// A throwable with a severity and messages from catalogues. Derived classes add clone, hurl and
/// getThrowableName.
class MRL_EXPORT HBLException : public HBLThrowable, public HBLMessageSet {
public:
    using HBLThrowable::getMessage;
    /// All messages, one a line.
    const char* getMessage(const char* language, std::string& text) const override;
    HBLSeverity getSeverity() const override;

protected:
    HBLException(HBLSeverity severity, int errorCode) noexcept;
    /// With `text` as its one message; null is no message.
    HBLException(HBLSeverity severity, const char* text);
    HBLException(const HBLException&) = default;
    HBLException& operator=(const HBLException&) = default;

private:
    HBLSeverity m_severity;
};
