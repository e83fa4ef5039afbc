#include "traffic/Directories.h"

#include "traffic/Recording.h"

#include <cerrno>
#include <cstdlib>
#include <sys/stat.h>
#include <system_error>

namespace mrl::tool {

namespace fs = std::filesystem;

namespace {

[[noreturn]] void notMade(const fs::path& path, int error) {
    throw TrafficError("the directory '" + path.string() +
                       "' cannot be made: " + std::generic_category().message(error));
}

fs::path withoutSlash(fs::path path) {
    return path.has_filename() ? path : path.parent_path();
}

fs::path madeFrom(const fs::path& place, const char* ending) {
    std::string path = place.string() + ending;
    if (::mkdtemp(path.data()) == nullptr)
        notMade(place, errno);
    return path;
}

void removeAll(const fs::path& path) {
    std::error_code ignored;
    if (!path.empty())
        fs::remove_all(path, ignored);
}

} // namespace

NewDirectory::NewDirectory(fs::path place)
    : m_place(withoutSlash(std::move(place))) {
    if (fs::symlink_status(m_place).type() != fs::file_type::not_found)
        throw TrafficError("'" + m_place.string() + "' is there already; name a directory that is not");
    m_path = madeFrom(m_place, ".partial-XXXXXX");
}

NewDirectory::~NewDirectory() {
    removeAll(m_path);
}

void NewDirectory::finish() {
    std::error_code error;
    fs::rename(m_path, m_place, error);
    if (error)
        notMade(m_place, error.value());
    m_path.clear();
}

TemporaryDirectory::TemporaryDirectory()
    : m_path(madeFrom(fs::temp_directory_path() / "mrl-", "XXXXXX")) {}

TemporaryDirectory::~TemporaryDirectory() {
    removeAll(m_path);
}

fs::path emptyDirectory(const fs::path& place) {
    const fs::path path = withoutSlash(fs::absolute(place));
    if (::mkdir(path.c_str(), S_IRWXU) == 0)
        return path;
    if (errno != EEXIST)
        notMade(path, errno);
    if (fs::symlink_status(path).type() != fs::file_type::directory)
        throw TrafficError("'" + path.string() + "' is a link or a file; name a directory");
    std::error_code error;
    const bool isEmpty = fs::is_empty(path, error);
    if (error)
        throw TrafficError("the directory '" + path.string() + "' cannot be read: " + error.message());
    if (!isEmpty)
        throw TrafficError("the directory '" + path.string() +
                           "' is not empty; name a new one with --into or --sent, or remove it");
    return path;
}

} // namespace mrl::tool
