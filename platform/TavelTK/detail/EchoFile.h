#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace mrl::detail {

/// A copy of an exchange's bytes in a file, for whoever looks into a failure. Made with rights 0600, since
/// the traffic may hold secrets.
///
/// A file that is replaced keeps its old bytes until the first new ones stand in it, and is never empty in
/// between: a file system takes care to have a file on the disk that was emptied, filled and closed, and a
/// call would wait for that.
class EchoFile {
public:
    /// @param mode begins with 'w' (replace) or 'a' (append).
    /// @param flushEach each write is in the file when it returns; otherwise a few are gathered.
    /// @throws TavelTKException echoFailed with the name and the system's reason; badArgument for a mode.
    EchoFile(const char* fileName, const char* mode, bool flushEach);
    /// What cannot be written any more is lost.
    ~EchoFile();
    EchoFile(const EchoFile&) = delete;
    EchoFile& operator=(const EchoFile&) = delete;

    /// @throws TavelTKException echoFailed.
    void write(std::string_view bytes);

private:
    bool put(std::string_view bytes);
    bool flush();
    bool dropOldRest();

    std::string m_name;
    int m_file = -1;
    bool m_flushEach;
    std::string m_gathered;
    std::size_t m_written = 0;
    std::size_t m_oldSize = 0; // of a file that is replaced, until it is cut to what was written
};

} // namespace mrl::detail
