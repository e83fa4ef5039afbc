#include "traffic/ReplayRun.h"

#include "traffic/ChildProcess.h"
#include "traffic/Difference.h"
#include "traffic/Directories.h"
#include "traffic/Verification.h"

#include <algorithm>
#include <iostream>

namespace mrl::tool {

namespace fs = std::filesystem;

namespace {

constexpr const char* FIRST_SESSION = "session-0001";

/// A recording as sessions are answered from it: files that a host put right into a directory are those of
/// the first session.
class Stage {
public:
    explicit Stage(Recording& recording)
        : m_path(fs::absolute(recording.directory)) {
        const auto isPlain = [](const RecordedCall& call) { return call.session.empty(); };
        if (!std::ranges::all_of(recording.calls, isPlain))
            return;
        fs::create_directory_symlink(m_path, m_links.path() / FIRST_SESSION);
        m_path = m_links.path();
        for (RecordedCall& call : recording.calls)
            call.session = FIRST_SESSION;
    }
    const fs::path& path() const { return m_path; }

private:
    TemporaryDirectory m_links;
    fs::path m_path;
};

} // namespace

int ReplayRun::run() const {
    PathRules volatilePlaces = PathRules::volatilePlaces();
    for (const std::string& place : ignored)
        volatilePlaces.add(place);
    for (const std::string& file : rules)
        volatilePlaces.addFile(file);
    Recording recording = Recording::readCalls(directory);
    for (const Finding& finding : verify(recording))
        std::cerr << "mrl: " << finding.place << ": " << finding.words << '\n';

    const Stage stage(recording);
    const TemporaryDirectory unkept;
    const fs::path kept = sent.empty() ? unkept.path() : emptyDirectory(sent);
    const int code = runChild(
        command, {{"MRL_PLAYBACK_DIR", stage.path().string()}, {"MRL_RECORDING_DIR", kept.string()}});
    if (code == e_NotRun || code == e_NotFound)
        return code; // which has been told
    const Recording now = Recording::read(kept);
    if (now.calls.empty()) {
        std::cerr << "mrl: no call was answered. Either the program made none, or it sets the directories of "
                     "its sessions itself, or the property ExternalServicesRecordingMode is 0\n";
        return code == 0 ? 1 : code;
    }
    const std::size_t differing =
        printDifferences(recording, now, volatilePlaces, Compared::requests, std::cerr);
    std::cerr << "mrl: " << now.calls.size() << (now.calls.size() == 1 ? " call" : " calls")
              << " answered from the recording, " << differing
              << (differing == 1 ? " differs\n" : " differ\n");
    return code != 0 ? code : differing == 0 ? 0 : 1;
}

} // namespace mrl::tool
