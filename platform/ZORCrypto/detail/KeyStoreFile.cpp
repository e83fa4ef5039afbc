#include "ZORCrypto/detail/KeyStoreFile.h"

#include "HBLCore/HBLFmDir.h"
#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Clock.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace mrl::detail {

namespace {

constexpr mode_t c_ownerOnly = S_IRUSR | S_IWUSR;
constexpr mode_t c_others = S_IRWXG | S_IRWXO;
constexpr mode_t c_othersWrite = S_IWGRP | S_IWOTH;
constexpr std::size_t c_sizeLimit = 1U << 20; // some 9,000 keys

/// An open file, closed when it goes; a lock on it goes with it.
class Descriptor {
public:
    Descriptor(const std::string& path, int flags) noexcept
        : m_number(::open(path.c_str(), flags | O_CLOEXEC | O_NOFOLLOW, c_ownerOnly)) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (m_number >= 0)
            ::close(m_number);
    }
    int get() const noexcept { return m_number; }

private:
    int m_number;
};

template <class Call>
auto untilNotInterrupted(Call&& call) {
    decltype(call()) result = -1;
    do {
        result = call();
    } while (result < 0 && errno == EINTR);
    return result;
}

std::string octal(mode_t mode) {
    std::string text = "0";
    for (int shift = 6; shift >= 0; shift -= 3)
        text += static_cast<char>('0' + ((mode >> shift) & 7));
    return text;
}

bool isTrustedOwner(uid_t owner) {
    return owner == ::geteuid() || owner == 0;
}

} // namespace

void KeyStoreFile::refuse(int status, const std::string& why) const {
    HBL_THROW(ZORError(static_cast<ZORStatus>(status), "the key store " + m_path + ' ' + why),
              "KeyStoreFile");
}

void KeyStoreFile::systemFailed(const char* step, int error) const {
    refuse(eZORKeyStore, std::string("cannot be ") + step + ": " + std::generic_category().message(error) +
                             "; MRL_KEY_STORE can name another place");
}

std::string KeyStoreFile::directory() const {
    std::string directory;
    HBLFmDir::splitPath(m_path, &directory, nullptr);
    return directory;
}

void KeyStoreFile::checkDirectory() const {
    const std::string path = directory();
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0)
        systemFailed("found", errno);
    if (!isTrustedOwner(status.st_uid) || (status.st_mode & c_othersWrite) != 0)
        refuse(eZORKeyStore, "lies in " + path + ", where others may replace it (rights " +
                                 octal(status.st_mode) + "); chmod go-w the directory, or move the store");
}

std::optional<FileState> KeyStoreFile::look() const {
    struct stat status {};
    if (::lstat(m_path.c_str(), &status) == 0)
        return FileState(status);
    if (errno != ENOENT && errno != ENOTDIR)
        systemFailed("found", errno);
    return std::nullopt;
}

std::optional<KeySet> KeyStoreFile::read(FileState* state) const {
    const Descriptor file(m_path, O_RDONLY | O_NONBLOCK);
    if (file.get() < 0 && (errno == ENOENT || errno == ENOTDIR))
        return std::nullopt;
    if (file.get() < 0 && errno == ELOOP)
        refuse(eZORKeyStore, "is a symbolic link; name the file itself");
    struct stat status {};
    if (file.get() < 0 || ::fstat(file.get(), &status) != 0)
        systemFailed("read", errno);
    if (!S_ISREG(status.st_mode))
        refuse(eZORKeyStore, "is not a file");
    if (!isTrustedOwner(status.st_uid))
        refuse(eZORKeyStore, "belongs to user " + std::to_string(status.st_uid) + "; chown it to user " +
                                 std::to_string(::geteuid()));
    if ((status.st_mode & c_others) != 0)
        refuse(eZORKeyStore, "is open to others (rights " + octal(status.st_mode) +
                                 "): chmod 600 it, and rotate its keys if somebody may have read them");
    checkDirectory();
    if (static_cast<std::size_t>(status.st_size) > c_sizeLimit)
        refuse(eZORKeyStore, "is damaged: it is larger than any key store; restore it from a backup");
    SecretText content(static_cast<std::size_t>(status.st_size) + 1);
    std::string& text = content.text();
    text.resize(static_cast<std::size_t>(status.st_size));
    std::size_t done = 0;
    while (done < text.size()) {
        const ssize_t got =
            untilNotInterrupted([&] { return ::read(file.get(), text.data() + done, text.size() - done); });
        if (got < 0)
            systemFailed("read", errno);
        if (got == 0)
            break;
        done += static_cast<std::size_t>(got);
    }
    text.resize(done);
    if (state != nullptr)
        *state = FileState(status);
    try {
        return KeySet::parse(text);
    } catch (const ZORError& e) {
        refuse(e.getStatus(),
               std::string(e.getStatus() == eZORUnknownVersion ? "is of another version: " : "is damaged: ") +
                   e.getText() + "; restore it from a backup");
    }
}

/// Puts `keys` where the store is. The lock is held. What a reader meets is the old file or the new one.
void KeyStoreFile::replace(const KeySet& keys) const {
    const std::string temporary = m_path + ".new"; // left behind only by a process that died here
    ::unlink(temporary.c_str());
    const Descriptor file(temporary, O_WRONLY | O_CREAT | O_EXCL);
    if (file.get() < 0)
        systemFailed("written", errno);
    const auto failed = [&](int error) {
        ::unlink(temporary.c_str());
        systemFailed("written", error);
    };
    const SecretText content = keys.format();
    const std::string& text = content.text();
    if (::fchmod(file.get(), c_ownerOnly) != 0) // whatever the process masks
        failed(errno);
    for (std::size_t done = 0; done < text.size();) {
        const ssize_t put =
            untilNotInterrupted([&] { return ::write(file.get(), text.data() + done, text.size() - done); });
        if (put < 0)
            failed(errno);
        done += static_cast<std::size_t>(put);
    }
    if (::fsync(file.get()) != 0 || ::rename(temporary.c_str(), m_path.c_str()) != 0)
        failed(errno);
    const Descriptor parent(directory(), O_RDONLY | O_DIRECTORY);
    if (parent.get() < 0 || ::fsync(parent.get()) != 0)
        systemFailed("kept on disk", errno);
}

bool KeyStoreFile::create() const {
    if (HBLFmDir::createRecursiveDir(directory().c_str()) == 0)
        systemFailed("made", errno != 0 ? errno : EACCES);
    checkDirectory();
    const Descriptor lock(m_path + ".lock", O_RDWR | O_CREAT);
    if (lock.get() < 0 || untilNotInterrupted([&] { return ::flock(lock.get(), LOCK_EX); }) != 0)
        systemFailed("locked", errno);
    if (look())
        return false;
    replace(KeySet::create(secondsSince1970()));
    return true;
}

KeySet KeyStoreFile::rotate() const {
    const auto missing = [this] { refuse(eZORKeyStore, "is not there; `mrl keys init` makes it"); };
    if (!look())
        missing();
    checkDirectory();
    const Descriptor lock(m_path + ".lock", O_RDWR | O_CREAT);
    if (lock.get() < 0 || untilNotInterrupted([&] { return ::flock(lock.get(), LOCK_EX); }) != 0)
        systemFailed("locked", errno);
    std::optional<KeySet> keys = read();
    if (!keys)
        missing();
    keys->addNewKey(secondsSince1970());
    replace(*keys);
    return *std::move(keys);
}

} // namespace mrl::detail
