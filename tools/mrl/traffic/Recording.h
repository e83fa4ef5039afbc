#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

/// A recording that cannot be worked with: what, where, and what to do.
struct TrafficError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

/// The files of one call.
struct RecordedCall {
    std::string session; ///< the directory below the recording's, "session-0001"; empty for none
    std::string service;
    unsigned number = 0; ///< counted for each service of a session
    std::string requestMessage;
    std::string replyMessage;
    std::filesystem::path request; ///< empty when there is no such file; so is `reply`
    std::filesystem::path reply;
    std::vector<std::filesystem::path> requestAttachments; ///< in the order in which they were sent
    std::vector<std::filesystem::path> replyAttachments;

    /// "session-0001/contentManagerService.0"
    std::string id() const;
    /// All files there are.
    std::vector<std::filesystem::path> files() const;
};

/// What a session, or several of them, left on disk: files right in a directory, as a host records that names
/// the directory itself, or in one directory for each session, as `mrl record` makes them.
struct Recording {
    std::filesystem::path directory;
    std::vector<RecordedCall> calls;              ///< by session, service and number
    std::vector<std::filesystem::path> strangers; ///< files that no session writes, and links
    std::vector<std::string> silentSessions;      ///< sessions without a call

    /// @throws TrafficError when the directory cannot be read.
    static Recording read(const std::filesystem::path& directory);
    /// @throws TrafficError also when there is no call in it.
    static Recording readCalls(const std::filesystem::path& directory);

    /// The call that an id means. The session may be left out where there is only one such call.
    /// @throws TrafficError for none and for several.
    const RecordedCall& find(std::string_view id) const;
};

/// "contentManagerService.3-contentQuery_Reply_attachment2" taken apart.
struct RecordedFileName {
    enum Kind { request, requestAttachment, reply, replyAttachment };
    std::string service;
    unsigned number = 0;
    std::string message;
    Kind kind = request;
    unsigned attachment = 0; ///< from 1 on

    /// @return false for a name that no session gives.
    bool parse(std::string_view name);
};

} // namespace mrl::tool
