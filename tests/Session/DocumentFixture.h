#pragma once

#include "Session/MRLDocIo.h"
#include "Session/detail/FileGate.h"
#include "Session/detail/PropertyAccess.h"
#include "support/ConfigurationFile.h"
#include "support/Failure.h"
#include "support/TemporaryDirectory.h"

#include <atomic>
#include <csignal>
#include <filesystem>
#include <string>
#include <sys/resource.h>

namespace mrl::test {

/// Documents with a small buffer and a temporary directory of their own.
class Documents {
public:
    explicit Documents(bool encrypted = false, const char* bufferSize = "1000")
        : m_configuration(ConfigurationFile::withParameters(
              ConfigurationFile::parameter("temp", m_directory.path()) +
              ConfigurationFile::parameter("encryptTemporaryFiles", encrypted ? "true" : "false"))) {
        detail::PropertyAccess::setConfigFile("/nowhere");
        detail::PropertyAccess::setValue("outputBufferSize", I18NString(bufferSize), 1);
        MRLDocIo::initialize();
    }
    ~Documents() {
        MRLDocIo::terminate();
        detail::PropertyAccess::setConfigFile(detail::PropertyAccess::defaultConfigFile);
    }

    std::string temp() const { return m_directory.path(); }
    std::string directory() const { return m_directory.path() + "/renq"; }
    std::size_t files() const {
        std::error_code none;
        std::size_t count = 0;
        for (auto entry = std::filesystem::directory_iterator(directory(), none); entry != end(entry);
             ++entry) {
            ++count;
        }
        return count;
    }

private:
    TemporaryDirectory m_directory;
    ConfigurationFile m_configuration;
};

/// A disk on which no file grows beyond `bytes`.
class FullDisk {
public:
    explicit FullDisk(rlim_t bytes)
        : m_handler(std::signal(SIGXFSZ, SIG_IGN)) {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &m_before);
        std::signal(SIGXFSZ, m_handler);
    }

private:
    rlimit m_before{};
    void (*m_handler)(int);
};

/// Makes the n-th step of all files fail, from 1 on; 0 for none.
class FailingStep {
public:
    explicit FailingStep(int n) {
        s_left = n;
        detail::replaceFileGate([](detail::FileStep) { return --s_left != 0; });
    }
    ~FailingStep() { detail::replaceFileGate(nullptr); }
    bool happened() const { return s_left <= 0; }

private:
    static inline std::atomic<int> s_left = 0;
};

/// Bytes that are not all the same, and pack to about a tenth.
inline std::string bytesOf(std::size_t size) {
    std::string bytes;
    for (unsigned i = 0; bytes.size() < size; ++i) {
        bytes += "row " + std::to_string(i * 2654435761U) + std::string(90, '.') + "\n";
    }
    return bytes.substr(0, size);
}

inline constexpr const char* noDirectory = "HBL_ASSERT_NAMED(HBLFmDir::createRecursiveDir(tempPath.c_str()), "
                                           "\"[MRLDocIo::fileMode] temporary directory creation failure.\");";

} // namespace mrl::test
