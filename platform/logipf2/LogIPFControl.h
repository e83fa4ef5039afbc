#pragma once

#include "HBLCore/MRLExport.h"

#include <string>

/// Starts and stops the logging of the process. Thread-safe. docs/logging.md tells how to configure it.
class MRL_EXPORT LogIPFControl {
public:
    LogIPFControl() = delete;

    /// Reads the configuration; until then no level of any logger is enabled. A second start changes
    /// nothing. Never fails because of the configuration: what is wrong with it is said once on standard
    /// error, and logging stays off until the file is mended.
    /// @param options 0; no other value has a meaning.
    static void start(int options);

    /// Writes what an asynchronous configuration holds back, closes all sinks, and disables every level. A
    /// later start begins anew. A process that logs asynchronously must stop before it ends.
    static void stop();

    /// Where the configuration is read from.
    struct Location {
        std::string path;       ///< absolute
        bool isFromEnvironment; ///< the variable names it, so that it has to be there
    };

    /// The file that the environment variable MRL_LOG_CONFIGURATION names when it is set and not empty, else
    /// "../configuration/mrllogging.json"; a relative path is seen from the installation's directory for
    /// programs (HBLFmDir::resolveEffectivePath).
    static Location getLocation();

    /// The name of that variable.
    static constexpr const char* s_locationVariable = "MRL_LOG_CONFIGURATION";

    /// Reads a configuration without using it.
    /// @throws LogConfigurationError when it could not be used.
    static void checkConfiguration(const std::string& path);
};
