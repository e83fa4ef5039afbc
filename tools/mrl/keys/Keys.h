#pragma once

#include <iosfwd>
#include <string>

// What `mrl keys` does. Failures are ZORError; nothing prints what a key is.
namespace mrl::tool {

/// The absolute path of the store: `given`, or where the toolkit finds it when that is empty.
std::string keyStorePath(const std::string& given);

/// Makes a store. @return false, saying so on `errors`, when there is one already.
bool initKeys(const std::string& path, std::ostream& out, std::ostream& errors);

/// Checks the store and prints it: its path, then a key a line, id, time of making and use.
void listKeys(const std::string& path, std::ostream& out);

/// Adds a key to an existing store.
void rotateKeys(const std::string& path, std::ostream& out);

} // namespace mrl::tool
