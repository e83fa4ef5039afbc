#pragma once

#include "Common/MRLHBLMessage.h"
#include "Common/MRLMessageNumbers.h"

#include "HBLCore/HBLFailure.h"

/// What the toolkit throws for a failure that a user may read about.
class MRL_EXPORT MRLException : public HBLException {
public:
    explicit MRLException(int errorCode);
    MRLException(HBLSeverity severity, int errorCode);
    explicit MRLException(const char* text);
    MRLException(HBLSeverity severity, const char* text);
    MRLException(const MRLException& other) = default;
    /// Severity, code, back trace and messages of `other`, and behind them `message` unless it is null.
    MRLException(const HBLException& other, const HBLMessageBase* message);
    MRLException& operator=(const MRLException& other);
    ~MRLException() override;

    /// Adds a copy of `message`.
    MRLException& operator<<(const HBLMessageBase& message);

    MRLException* clone() const override;
    [[noreturn]] void hurl(const HBLFileLocation& where, const char* function, const char* macro) override;
    using HBLException::getMessage;
    const char* getThrowableName() const override;

protected:
    const char* getErrorCodePrefix() const override;
};
