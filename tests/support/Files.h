#pragma once

#include <fstream>
#include <iterator>
#include <string>

namespace mrl::test {

/// The bytes of a file; none when it cannot be read.
inline std::string bytesOfFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// The bytes of a file in the folder "golden" of this test program.
inline std::string golden(const std::string& name) {
    return bytesOfFile(MRL_TEST_DATA "/golden/" + name);
}

} // namespace mrl::test
