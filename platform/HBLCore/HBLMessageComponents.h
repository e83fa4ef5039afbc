#pragma once

#include "HBLCore/HBLMessageBase.h"
#include "HBLCore/HBLMessageParm.h"

#include <cstdint>
#include <string>
#include <vector>

/// What identifies a message: the component whose catalogue holds its text, a number, and the
/// parameters in the order of the text's places.
class MRL_EXPORT HBLMessageComponents : public HBLMessageBase {
public:
    /// Adds a parameter.
    HBLMessageComponents& operator<<(const HBLMessageParm& parameter);
    void addParameter(const HBLMessageParm& parameter);

    /// Sets the number; component and parameters stay.
    void setMessage(std::uint32_t number) noexcept { m_number = number; }

    std::uint32_t getNumber() const noexcept { return m_number; }
    const std::string& getComponent() const noexcept { return m_component; }
    const std::vector<HBLMessageParm>& getParameters() const noexcept { return m_parameters; }

protected:
    HBLMessageComponents(const char* component, std::uint32_t number);

private:
    std::string m_component;
    std::uint32_t m_number;
    std::vector<HBLMessageParm> m_parameters;
};
