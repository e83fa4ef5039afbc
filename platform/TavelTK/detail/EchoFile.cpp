#include "TavelTK/detail/EchoFile.h"

#include "TavelTK/detail/Failure.h"

#include <cerrno>
#include <fcntl.h>
#include <system_error>
#include <unistd.h>

namespace mrl::detail {

namespace {

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
    const int descriptor =
        ::open(m_name.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (kind == 'w' ? O_TRUNC : O_APPEND), 0600);
    if (descriptor < 0)
        refuse(m_name, "opened");
    m_file.reset(::fdopen(descriptor, kind == 'w' ? "wb" : "ab"));
    if (!m_file) {
        ::close(descriptor);
        refuse(m_name, "opened");
    }
}

void EchoFile::write(std::string_view bytes) {
    if (std::fwrite(bytes.data(), 1, bytes.size(), m_file.get()) != bytes.size() ||
        (m_flushEach && std::fflush(m_file.get()) != 0))
        refuse(m_name, "written");
}

} // namespace mrl::detail
