#include "traffic/RecordRun.h"

#include "traffic/ChildProcess.h"
#include "traffic/Directories.h"
#include "traffic/Verification.h"

#include <iostream>

namespace mrl::tool {

int RecordRun::run() const {
    const std::filesystem::path into = emptyDirectory(directory);
    const int code = runChild(command, {{"MRL_RECORDING_DIR", into.string()}, {"MRL_PLAYBACK_DIR", ""}});
    if (code == e_NotRun || code == e_NotFound)
        return code; // which has been told
    const Recording recording = Recording::read(into);
    if (recording.calls.empty()) {
        std::cerr << "mrl: nothing was recorded. Either the program made no call, or it sets the directories "
                     "of its sessions itself, or it runs with another user's rights, or the property "
                     "ExternalServicesRecordingMode is 0\n";
        return code == 0 ? 1 : code;
    }
    std::cerr << "mrl: " << recording.calls.size() << (recording.calls.size() == 1 ? " call" : " calls")
              << " recorded in '" << into.string()
              << "'; it holds passports and whatever else was sent, see `mrl traffic redact`\n";
    for (const Finding& finding : verify(recording))
        std::cerr << "mrl: " << finding.place << ": " << finding.words << '\n';
    return code;
}

} // namespace mrl::tool
