#pragma once

#include "HBLCore/HBLSmartPointer.h"

#include <memory>
#include <mutex>
#include <string>

class MRLTestInfo;
class TavelTK;

namespace mrl::detail {

/// The three files of one recorded call.
struct RecordedFiles {
    std::string request;
    std::string requestAttachment;
    std::string response;
};

/// What the environment wants of a session whose host has no wish of its own: MRL_RECORDING_DIR has its calls
/// recorded, MRL_PLAYBACK_DIR has them answered from a recording, both together answer and record.
///
/// Sessions of one process and of several write into one directory: each gets a directory of its own below,
/// "session-0001" and so on, made at its construction, so that no file is written twice. Played back, the
/// n-th session is answered from the n-th.
class AmbientTraffic {
public:
    /// Null, as a rule: the environment asks for nothing. A program that runs with other rights than its
    /// user's asks for nothing either.
    /// @param mayRecord false: no file is written, whatever the environment wants.
    /// @throws MRLException when the directory for a session cannot be made.
    static std::unique_ptr<AmbientTraffic> fromEnvironment(bool mayRecord);
    ~AmbientTraffic();
    AmbientTraffic(const AmbientTraffic&) = delete;
    AmbientTraffic& operator=(const AmbientTraffic&) = delete;

    /// Where the session records to; null when it plays back.
    const char* recordingDir() const;
    /// Where the session is answered from; null when it records.
    const char* playbackDir() const;

    /// The factory that answers a call from its recorded files, and records what is sent when that was asked
    /// for.
    /// @throws MRLException when the call was not recorded, or has no reply.
    std::unique_ptr<TavelTK> playBack(const RecordedFiles& files) const;

    /// Numbering calls: a host that does not know of a recording may use a session from several threads.
    std::mutex& lock() const { return m_lock; }

private:
    AmbientTraffic() = default;

    mutable std::mutex m_lock;
    std::string m_recordingDir; // empty for none
    std::string m_playbackDir;  // likewise
    HBLSmartPointer<MRLTestInfo> m_testInfo;
};

} // namespace mrl::detail
