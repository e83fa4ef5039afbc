#pragma once

#include "HBLCFGAPI/IHBLConfiguration.h"

#include <string>

/// Gives out the configuration service, one for the process. Thread-safe.
class MRL_EXPORT HBLConfigurationFactory {
public:
    HBLConfigurationFactory() = delete;

    /// The service, made on first use; making it reads nothing.
    static IHBLConfiguration& getInstance();

    /// Ends the service with all that it holds; the next getInstance() makes a new one. Nobody may be
    /// using it.
    static void deleteInstance();

    /// Where IHBLConfiguration::load() reads.
    struct Location {
        std::string path;       ///< absolute
        bool isFromEnvironment; ///< the variable names it, so that it has to be there
    };

    /// The file that the environment variable MRL_CONFIGURATION names when it is set and not empty, else
    /// "../configuration/qzconfig.xml"; a relative path is seen from the installation's directory for
    /// programs (HBLFmDir::resolveEffectivePath).
    static Location getDefaultLocation();

    /// The name of that variable.
    static constexpr const char* s_locationVariable = "MRL_CONFIGURATION";
};
