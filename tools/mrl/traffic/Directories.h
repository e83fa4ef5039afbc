#pragma once

#include <filesystem>

namespace mrl::tool {

/// A new directory that appears in its place as a whole: made beside it under another name, for its owner
/// alone, and gone again unless finish() was reached.
class NewDirectory {
public:
    /// @throws TrafficError when something is there already, or the directory cannot be made.
    explicit NewDirectory(std::filesystem::path place);
    ~NewDirectory();
    NewDirectory(const NewDirectory&) = delete;
    NewDirectory& operator=(const NewDirectory&) = delete;

    const std::filesystem::path& path() const { return m_path; }
    /// @throws TrafficError
    void finish();

private:
    std::filesystem::path m_place;
    std::filesystem::path m_path; // empty once it is in its place
};

/// A directory for one run, gone at its end.
class TemporaryDirectory {
public:
    /// @throws TrafficError
    TemporaryDirectory();
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    const std::filesystem::path& path() const { return m_path; }

private:
    std::filesystem::path m_path;
};

/// Makes a directory for its owner alone, or takes one that is there and empty.
/// @return its absolute path.
/// @throws TrafficError for one that is not empty, a link, and what cannot be made.
std::filesystem::path emptyDirectory(const std::filesystem::path& place);

} // namespace mrl::tool
