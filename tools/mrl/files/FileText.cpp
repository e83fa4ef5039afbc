#include "files/FileText.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>
#include <stdexcept>

namespace mrl::tool {

namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

[[noreturn]] void unreadable(const std::string& path, int reason) {
    throw std::runtime_error("the file '" + path + "' cannot be read: " + std::strerror(reason));
}

} // namespace

std::string fileText(const std::string& path) {
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr)
        unreadable(path, errno);
    std::string text;
    std::array<char, 65536> piece{};
    while (const std::size_t count = std::fread(piece.data(), 1, piece.size(), file.get()))
        text.append(piece.data(), count);
    if (std::ferror(file.get()) != 0)
        unreadable(path, errno);
    return text;
}

} // namespace mrl::tool
