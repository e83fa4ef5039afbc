#pragma once

#include "HBLCFGAPI/HBLConfigurationPlace.h"
#include "HBLCore/HBLError.h"

/// A configuration that cannot be used. The text begins with the place, "file:line:column: ", and says what
/// was expected there.
class MRL_EXPORT HBLConfigurationError : public HBLErrorOf<HBLConfigurationError> {
public:
    static constexpr const char* s_name = "HBLConfigurationError";

    HBLConfigurationError(const HBLConfigurationPlace& place, const std::string& words);

    int getLine() const noexcept { return m_line; }
    int getColumn() const noexcept { return m_column; }

protected:
    const char* getErrorCodePrefix() const override;

private:
    int m_line;
    int m_column;
};
