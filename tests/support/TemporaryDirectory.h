#pragma once

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace mrl::test {

/// A directory for one test, gone at its end.
class TemporaryDirectory {
public:
    TemporaryDirectory() { m_path = ::mkdtemp(m_path.data()); }
    ~TemporaryDirectory() {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::string& path() const { return m_path; }
    /// Names of the regular files right in it, sorted.
    std::vector<std::string> files() const {
        std::vector<std::string> names;
        for (const auto& entry : std::filesystem::directory_iterator(m_path))
            if (entry.is_regular_file())
                names.push_back(entry.path().filename());
        std::sort(names.begin(), names.end());
        return names;
    }

private:
    std::string m_path = (std::filesystem::temp_directory_path() / "mrl-test-XXXXXX").string();
};

} // namespace mrl::test
