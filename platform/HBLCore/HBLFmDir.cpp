#include "HBLCore/HBLFmDir.h"

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace fs = std::filesystem;

namespace {

fs::path programDirectory() {
    if (const char* home = secure_getenv("MRL_HOME"); home && *home)
        return fs::absolute(home) / "bin";
    std::error_code failed;
    return fs::read_symlink("/proc/self/exe", failed).parent_path();
}

} // namespace

void HBLFmDir::resolveEffectivePath(std::string& path) {
    if (!path.empty())
        path = (programDirectory() / path).lexically_normal().string(); // an absolute path replaces the left
}

int HBLFmDir::createRecursiveDir(const char* path) {
    if (!path || !*path)
        return 0;
    std::error_code failed;
    std::vector<fs::path> missing;
    const fs::path whole = fs::path(path).lexically_normal();
    for (fs::path at = whole; !at.empty() && !fs::exists(at, failed); at = at.parent_path()) {
        if (at.has_filename()) // not the empty name behind a final slash
            missing.push_back(at);
    }
    for (auto at = missing.rbegin(); at != missing.rend(); ++at)
        ::mkdir(at->c_str(), S_IRWXU); // another process may have been first; the end decides
    return fs::is_directory(whole, failed);
}

int HBLFmDir::exists(const char* path, int mode) {
    struct stat status {};
    if (!path || ::stat(path, &status) != 0)
        return 0;
    const int kind = mode & S_IFMT;
    if (kind && static_cast<int>(status.st_mode & S_IFMT) != kind)
        return 0;
    const int access =
        ((mode & S_IRUSR) ? R_OK : 0) | ((mode & S_IWUSR) ? W_OK : 0) | ((mode & S_IXUSR) ? X_OK : 0);
    return access == 0 || ::faccessat(AT_FDCWD, path, access, AT_EACCESS) == 0;
}

int HBLFmDir::createTempFile(const char* directory, const char* prefix, std::string& name) {
    if (!directory || !*directory)
        return 0;
    std::string path = (fs::path(directory) / (std::string(prefix ? prefix : "") + "XXXXXX")).string();
    const int descriptor = ::mkostemp(path.data(), O_CLOEXEC);
    if (descriptor < 0)
        return 0;
    ::close(descriptor);
    name = std::move(path);
    return 1;
}

void HBLFmDir::splitPath(const std::string& path, std::string* directory, std::string* file) {
    const auto slash = path.rfind('/');
    std::string above = slash == std::string::npos ? "." : slash == 0 ? "/" : path.substr(0, slash);
    std::string last = slash == std::string::npos ? path : path.substr(slash + 1);
    if (directory)
        *directory = std::move(above);
    if (file)
        *file = std::move(last);
}
