#include "TavelTK/detail/EchoFile.h"

#include "TavelTK/detail/Failure.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace mrl::detail {

namespace {

constexpr std::size_t s_gatherSize = 16384;

[[noreturn]] void refuse(const std::string& name, std::string_view step) {
    const int reason = errno;
    fail(TavelTKError::echoFailed, TavelTKPhase::echo, {},
         "the file '" + printable(name) + "' cannot be " + std::string(step) + " (" +
             std::generic_category().message(reason) + ")");
}

} // namespace

EchoFile::EchoFile(const char* fileName, const char* mode, bool flushEach)
    : m_name(fileName ? fileName : "")
    , m_flushEach(flushEach) {
    const char kind = mode ? *mode : '\0';
    if (kind != 'w' && kind != 'a')
        fail(TavelTKError::badArgument, TavelTKPhase::echo, {},
             "the mode '" + printable(mode ? mode : "") + "' of an echo file is neither \"wb\" nor \"ab\"");
    m_file = ::open(m_name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (kind == 'a' ? O_APPEND : 0), 0600);
    if (m_file < 0)
        refuse(m_name, "opened");
    struct stat found {};
    if (kind == 'w' && ::fstat(m_file, &found) == 0 && S_ISREG(found.st_mode))
        m_oldSize = static_cast<std::size_t>(found.st_size);
}

EchoFile::~EchoFile() {
    flush();
    dropOldRest(); // nothing may have been written at all
    ::close(m_file);
}

void EchoFile::write(std::string_view bytes) {
    bool isGood = true;
    if (m_flushEach) {
        isGood = put(bytes);
    } else {
        m_gathered.append(bytes);
        isGood = m_gathered.size() < s_gatherSize || flush();
    }
    if (!isGood)
        refuse(m_name, "written");
}

bool EchoFile::flush() {
    const std::string bytes = std::exchange(m_gathered, {});
    return bytes.empty() || put(bytes);
}

bool EchoFile::put(std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = ::write(m_file, bytes.data(), bytes.size());
        if (count < 0 && errno != EINTR)
            return false;
        bytes.remove_prefix(count < 0 ? 0 : static_cast<std::size_t>(count));
        m_written += count < 0 ? 0 : static_cast<std::size_t>(count);
    }
    return dropOldRest();
}

bool EchoFile::dropOldRest() {
    const std::size_t oldSize = std::exchange(m_oldSize, 0);
    return oldSize <= m_written || ::ftruncate(m_file, static_cast<off_t>(m_written)) == 0;
}

} // namespace mrl::detail
