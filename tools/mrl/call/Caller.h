#pragma once

#include "Session/MRLSOAPSession.h"
#include "call/AttachedFiles.h"
#include "call/Signatures.h"

#include <optional>
#include <string>
#include <vector>

namespace mrl::tool {

/// What a call ends in, besides ExitCode.
inline constexpr int faultExit = 3;
inline constexpr int transportExit = 4;
inline constexpr int badReplyExit = 5;

struct CallSettings {
    std::string url; ///< empty: what the configuration says
    std::string client = "mrl";
    MRLSOAPSession::MRLSOAPTrusted trusted = MRLSOAPSession::eMRLSOAPUntrusted;
    std::optional<unsigned> retries;
    unsigned timeLimit = 0; ///< seconds for the whole call; 0: the toolkit's own limit of one exchange
    Json header;            ///< of the class tavelHeader; null: an empty one
    std::string passport;   ///< put into the header; empty: none
    std::vector<AttachedFile> attachments;
    bool compress = false;     ///< packs the attachments
    std::string saveDirectory; ///< where the attachments of the reply go; empty: into the printed reply
    bool verbose = false;      ///< both envelopes to standard error
};

/// Sends the request and prints the reply as JSON; what goes wrong is told on standard error.
/// @return the exit code.
/// @throws JsonError for a header that cannot be built, and attachments that do not match the request;
/// std::runtime_error for a directory that takes no files. Nothing was sent then.
int call(const BuiltRequest& request, const CallSettings& settings);

} // namespace mrl::tool
