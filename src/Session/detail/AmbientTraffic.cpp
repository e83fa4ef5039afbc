#include "Session/detail/AmbientTraffic.h"

#include "Common/EchoTavelTK.h"
#include "Common/MRLException.h"
#include "Session/MRLTestInfo.h"
#include "Session/detail/BorrowedTavelTK.h"

#include "HBLCore/HBLFmDir.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <sys/stat.h>
#include <system_error>
#include <tuple>

namespace mrl::detail {

namespace {

std::string variable(const char* name) {
    const char* const value = ::secure_getenv(name);
    return value == nullptr ? std::string() : std::string(value);
}

std::string sessionDir(const std::string& base, unsigned number) {
    char name[32];
    std::snprintf(name, sizeof name, "/session-%04u", number);
    return base + name;
}

/// Counts the sessions of this process for a directory, from 1 on.
unsigned nextNumber(const std::string& base) {
    static std::mutex s_lock;
    static std::map<std::string, unsigned> s_numbers;
    const std::lock_guard<std::mutex> guard(s_lock);
    return ++s_numbers[base];
}

/// Makes the next directory that is free, also among the sessions of other processes.
/// @return its number.
unsigned claim(const std::string& base) {
    for (;;) {
        const unsigned number = nextNumber(base);
        const std::string path = sessionDir(base, number);
        if (::mkdir(path.c_str(), S_IRWXU) == 0) {
            return number;
        }
        if (const int error = errno; error != EEXIST) {
            HBL_THROW(MRLException(0) << (MRLHBLMessage(msg::recordingDirectoryNotMade)
                                          << path << std::generic_category().message(error)),
                      "MRLSOAPSession::MRLSOAPSession");
        }
    }
}

} // namespace

std::unique_ptr<AmbientTraffic> AmbientTraffic::fromEnvironment(bool mayRecord) {
    const std::string recording = mayRecord ? variable("MRL_RECORDING_DIR") : std::string();
    const std::string playback = variable("MRL_PLAYBACK_DIR");
    if (recording.empty() && playback.empty()) {
        return nullptr;
    }
    std::unique_ptr<AmbientTraffic> traffic(new AmbientTraffic);
    const unsigned number = recording.empty() ? nextNumber(playback) : claim(recording);
    if (!recording.empty()) {
        traffic->m_recordingDir = sessionDir(recording, number);
    }
    if (!playback.empty()) {
        traffic->m_playbackDir = sessionDir(playback, number);
        traffic->m_testInfo = HBLSmartPointer<MRLTestInfo>(MRLTestInfo::create());
    }
    return traffic;
}

AmbientTraffic::~AmbientTraffic() = default;

const char* AmbientTraffic::recordingDir() const {
    return m_playbackDir.empty() ? m_recordingDir.c_str() : nullptr;
}

const char* AmbientTraffic::playbackDir() const {
    return m_playbackDir.empty() ? nullptr : m_playbackDir.c_str();
}

std::unique_ptr<TavelTK> AmbientTraffic::playBack(const RecordedFiles& files) const {
    const std::lock_guard<std::mutex> guard(m_lock);
    if (HBLFmDir::exists(files.response.c_str(), HBLFmDir::eReadableFile) == 0) {
        HBL_THROW(MRLException(0) << (MRLHBLMessage(msg::callNotRecorded) << files.response),
                  "MRLSOAPSession::submit");
    }
    auto recorded = std::make_unique<BorrowedTavelTK>(
        m_testInfo->getRecordedFilesAsSessionFactory(files.request, files.requestAttachment, files.response));
    if (m_recordingDir.empty()) {
        return recorded;
    }
    const auto capture = [this](const std::string& path) {
        std::string name;
        HBLFmDir::splitPath(path, nullptr, &name);
        return m_recordingDir + "/" + name;
    };
    auto echo = std::make_unique<EchoTavelTK>(recorded.get(), capture(files.request),
                                              capture(files.requestAttachment), capture(files.response));
    std::ignore = recorded.release();
    return echo;
}

} // namespace mrl::detail
