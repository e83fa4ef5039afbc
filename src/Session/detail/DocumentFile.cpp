#include "Session/detail/DocumentFile.h"

#include "Session/detail/FileGate.h"

#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmDir.h"
#include "HBLCore/I18NString.h"

#include <cerrno>
#include <fcntl.h>
#include <string_view>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace mrl::detail {

namespace {

constexpr mode_t ownerOnly = S_IRWXU;
constexpr mode_t everybodyElse = S_IRWXG | S_IRWXO;

std::string reasonOf(int error) {
    return std::generic_category().message(error);
}

/// Makes sure of a directory that is this user's, and closed to all others.
/// @return why there is none; empty when there is.
std::string closeToOthers(const std::string& path) {
    // Through the descriptor, so that what is checked is what is changed; a link is not followed.
    const int directory = ::open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (directory < 0) {
        return reasonOf(errno);
    }
    std::string objection;
    struct stat status {};
    if (::fstat(directory, &status) != 0) {
        objection = reasonOf(errno);
    } else if (status.st_uid != ::geteuid()) {
        objection = "it belongs to another user";
    } else if ((status.st_mode & everybodyElse) != 0 && ::fchmod(directory, ownerOnly) != 0) {
        objection = reasonOf(errno);
    }
    ::close(directory);
    return objection;
}

/// The assertion's text is interface; what went wrong with which directory goes into the back trace.
[[noreturn]] void refuse(const char* text, const std::string& directory, std::string_view cause) {
    const std::string place = "MRLDocIo::fileMode - \"" + directory +
                              "\" (from the configuration's \"temp\"): " + std::string(cause);
    hblAssertFailed(text, HBL_HERE, place.c_str());
}

} // namespace

void createDocumentFile(std::string& name) {
    std::string directory =
        HBLConfigurationFactory::getInstance().getProperty(I18NString("temp")).toUtf8() + "/renq";
    HBLFmDir::resolveEffectivePath(directory);
    errno = 0;
    const bool isThere =
        passes(FileStep::makeDirectory) && HBLFmDir::createRecursiveDir(directory.c_str()) != 0;
    const std::string objection = isThere ? closeToOthers(directory) : reasonOf(errno != 0 ? errno : EIO);
    if (!objection.empty()) {
        refuse("HBL_ASSERT_NAMED(HBLFmDir::createRecursiveDir(tempPath.c_str()), "
               "\"[MRLDocIo::fileMode] temporary directory creation failure.\");",
               directory, objection);
    }
    errno = 0;
    if (!passes(FileStep::create) || HBLFmDir::createTempFile(directory.c_str(), "output", name) == 0) {
        refuse("HBL_ASSERT_NAMED(HBLFmDir::createTempFile(tempPath.c_str(), \"output\", m_name), "
               "\"[MRLDocIo::fileMode] temporary file creation failure.\");",
               directory, reasonOf(errno != 0 ? errno : EIO));
    }
}

bool wantsEncryptedFiles() {
    return HBLConfigurationFactory::getInstance().getProperty(I18NString("encryptTemporaryFiles")) ==
           I18NString("true");
}

bool isPlainFile(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace mrl::detail
