#pragma once

#include <string>

namespace mrl::tool {

/// The whole content of a file.
/// @throws std::runtime_error with the file and the system's reason, also for a directory, of which a stream
/// would only say that it is empty.
std::string fileText(const std::string& path);

} // namespace mrl::tool
