#pragma once

#include "HBLCFGAPI/HBLConfigurationDocument.h"
#include "HBLCore/MRLExport.h"

#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

class TavelTK;

/// How the services of an installation are reached: authorities, identity, proxy, credentials and limits,
/// from the property "bus" of the configuration. Immutable, and therefore safe from any thread.
class MRL_EXPORT MRLBusSettings {
public:
    /// The settings there are: those of TavelTKSession::setProperty, without what each call decides for
    /// itself.
    static std::span<const std::string_view> names();

    /// What is wrong with a property "bus": unknown settings, those given twice, and values out of their
    /// range. Passwords are not repeated.
    static std::vector<HBLConfigurationFinding> check(const HBLConfigurationProperty& property);

    /// What is configured now. Kept until a configuration is loaded or configured anew, and then read again.
    /// @return null when nothing is configured.
    /// @throws HBLConfigurationError with file, line and column for the first thing that is wrong.
    static std::shared_ptr<const MRLBusSettings> current();

    /// Makes them the defaults of the factory's sessions.
    void apply(TavelTK& factory) const;

private:
    explicit MRLBusSettings(const HBLConfigurationProperty& property);

    std::vector<std::pair<std::string, std::string>> m_settings; // name and value
};
