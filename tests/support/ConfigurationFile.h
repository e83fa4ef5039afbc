#pragma once

#include "HBLCFGAPI/HBLConfigurationFactory.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

/// A configuration file for one test; the service reads it until the object ends, and begins anew then.
class ConfigurationFile {
public:
    explicit ConfigurationFile(const std::string& text) {
        std::ofstream(path(), std::ios::binary) << text;
        take(path());
    }
    ~ConfigurationFile() {
        ::unsetenv(HBLConfigurationFactory::s_locationVariable);
        HBLConfigurationFactory::deleteInstance();
        std::filesystem::remove(path());
    }
    ConfigurationFile(const ConfigurationFile&) = delete;
    ConfigurationFile& operator=(const ConfigurationFile&) = delete;

    static std::string path() {
        return (std::filesystem::temp_directory_path() /
                ("mrl_configuration_" + std::to_string(::getpid()) + ".xml"))
            .string();
    }

    /// Has the service begin anew with the file at `named`.
    static void take(const std::string& named) {
        ::setenv(HBLConfigurationFactory::s_locationVariable, named.c_str(), 1);
        HBLConfigurationFactory::deleteInstance();
    }

    /// A whole document with these parameters.
    static std::string withParameters(const std::string& parameters) {
        return "<qzn:parameters xmlns:qzn=\"http://developer.vantor.example/schemas/qzconfig/1/\">\n" +
               parameters + "\n</qzn:parameters>\n";
    }

    /// One parameter on one line.
    static std::string parameter(const std::string& name, const std::string& value) {
        return "<qzn:parameter name=\"" + name + "\"><qzn:value>" + value + "</qzn:value></qzn:parameter>";
    }
};
