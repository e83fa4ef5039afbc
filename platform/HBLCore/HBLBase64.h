#pragma once

#include "HBLCore/MRLExport.h"

#include <cstddef>
#include <string>
#include <string_view>

// Base64 with the standard alphabet and padding, over blocks in memory.

/// The characters that HBLBase64Encode writes for `size` bytes, without a NUL.
/// @param lineLength characters a line, a multiple of 4, with a line feed between lines; 0 is one line.
/// @throws HBLAssertError when `lineLength` is none or the result does not fit into size_t.
MRL_EXPORT std::size_t HBLBase64EncodedSize(std::size_t size, int lineLength);

/// Writes the text for `size` bytes, HBLBase64EncodedSize() characters and no NUL.
MRL_EXPORT void HBLBase64Encode(const void* data, std::size_t size, char* text, int lineLength);

/// The text for `bytes`, on one line.
MRL_EXPORT std::string HBLBase64Encoded(std::string_view bytes);

/// Reads text up to its NUL. Blanks, tabs and line ends are passed over; any other character outside the
/// alphabet, a last group that is not whole, or text behind the padding is a failure.
/// @param data room for three quarters of the text's length.
/// @param size receives the bytes written.
/// @return 0, or another value on failure; `*size` is then 0.
MRL_EXPORT int HBLBase64Decode(const char* text, void* data, std::size_t* size);
