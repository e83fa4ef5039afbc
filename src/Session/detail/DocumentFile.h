#pragma once

#include <string>

namespace mrl::detail {

/// Creates an empty temporary file for a document: "output" and random letters, for this user alone, in a
/// directory that no other user can enter, so that nobody can put a link or another file in its place. The
/// directory is "renq" below the configuration's "temp".
/// @param name receives its path.
/// @throws HBLAssertError when there is no such directory and none can be made, or no file; the back trace
/// names the directory and the cause.
void createDocumentFile(std::string& name);

/// Whether the configuration asks for encrypted temporary files.
bool wantsEncryptedFiles();

/// Whether a plain file stands at `path`, and not a link to one.
bool isPlainFile(const std::string& path);

} // namespace mrl::detail
