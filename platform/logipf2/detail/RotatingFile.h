#pragma once

#include "logipf2/detail/LineWriterI.h"

#include <cstdint>
#include <sys/stat.h>

namespace mrl::detail {

/// A log file that starts anew when it is full: "log" becomes "log.1", "log.1" becomes "log.2".
///
/// Each line is one appending write of the system, so that several processes can share the file and a crash
/// loses nothing. A file that another process or a tool has moved away is noticed at the next line.
class RotatingFile final : public LineWriterI {
public:
    /// Opens nothing yet.
    /// @param maxSize bytes beyond which a line goes to a new file; 0 for never.
    /// @param maxFiles old files that are kept.
    RotatingFile(std::string path, std::int64_t maxSize, int maxFiles);
    ~RotatingFile() override;
    RotatingFile(const RotatingFile&) = delete;
    RotatingFile& operator=(const RotatingFile&) = delete;

    Result write(spdlog::level::level_enum severity, std::string_view line) override;
    void forked() override { close(); } // a lock on the file must not be shared with the parent
    std::string describe() const override { return "file " + m_path; }

private:
    int reopen();
    void close() noexcept;
    bool isInPlace(const struct stat& there) const;
    int rotate();
    int moveAway() const;

    const std::string m_path;
    const std::int64_t m_maxSize;
    const int m_maxFiles;
    int m_descriptor = -1;
    struct stat m_opened = {};  // the file behind the descriptor
    bool m_torn = false;        // the last write broke off within a line
    std::int64_t m_retryAt = 0; // no attempt to open before this time
    int m_openFailure = 0;
};

} // namespace mrl::detail
