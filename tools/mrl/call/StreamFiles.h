#pragma once

#include "call/JsonOutput.h"

#include <filesystem>
#include <string>

namespace mrl::tool {

/// Puts streams into the printed JSON: a text as it is, anything else as Base64.
class StreamsInline : public StreamKeeper {
public:
    Json keep(const MRL_Streamable& stream, const std::string& path, bool isText) override;
};

/// Saves streams as files of a directory, which is made when it is missing; the JSON names them. No file
/// that exists is written over.
class StreamFiles : public StreamKeeper {
public:
    /// Makes the directory, and tries whether it takes a file.
    /// @throws std::runtime_error with the directory and the system's reason when it does not.
    explicit StreamFiles(std::filesystem::path directory);

    /// @throws PLQStreamError, std::filesystem::filesystem_error
    Json keep(const MRL_Streamable& stream, const std::string& path, bool isText) override;

private:
    std::filesystem::path m_directory;
};

} // namespace mrl::tool
