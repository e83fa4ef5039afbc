#include "traffic/Recording.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <optional>
#include <tuple>

namespace mrl::tool {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view REPLY = "_Reply";

/// The whole of `text` as a number, without signs or leading zeros.
std::optional<unsigned> numberOf(std::string_view text) {
    unsigned number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || (text.size() > 1 && text[0] == '0'))
        return std::nullopt;
    return number;
}

/// Cuts `mark` and what follows it off the end.
/// @param rest receives what follows.
bool cut(std::string_view& text, std::string_view mark, std::string_view& rest) {
    const std::size_t at = text.rfind(mark);
    if (at == std::string_view::npos)
        return false;
    rest = text.substr(at + mark.size());
    text = text.substr(0, at);
    return true;
}

struct SortedCalls {
    using Key = std::tuple<std::string, std::string, unsigned>;
    std::map<Key, RecordedCall> calls;
    std::map<Key, std::map<unsigned, fs::path>> sent;
    std::map<Key, std::map<unsigned, fs::path>> received;

    void add(const std::string& session, const RecordedFileName& name, const fs::path& path) {
        const Key key{session, name.service, name.number};
        RecordedCall& call = calls[key];
        std::tie(call.session, call.service, call.number) = key;
        switch (name.kind) {
        case RecordedFileName::request:
            call.requestMessage = name.message;
            call.request = path;
            break;
        case RecordedFileName::reply:
            call.replyMessage = name.message;
            call.reply = path;
            break;
        case RecordedFileName::requestAttachment: sent[key][name.attachment] = path; break;
        case RecordedFileName::replyAttachment: received[key][name.attachment] = path; break;
        }
    }
};

void readFiles(const fs::path& directory, const std::string& session, SortedCalls& sorted,
               Recording& recording) {
    const std::size_t before = sorted.calls.size();
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        if (session.empty() && !entry.is_symlink() && entry.is_directory())
            continue; // a session's, or nothing of a recording
        RecordedFileName name;
        if (entry.is_symlink() || !entry.is_regular_file() || !name.parse(entry.path().filename().native()))
            recording.strangers.push_back(entry.path());
        else
            sorted.add(session, name, entry.path());
    }
    if (!session.empty() && sorted.calls.size() == before)
        recording.silentSessions.push_back(session);
}

std::vector<fs::path> inOrder(const std::map<unsigned, fs::path>& paths) {
    std::vector<fs::path> list;
    list.reserve(paths.size());
    for (const auto& [number, path] : paths)
        list.push_back(path);
    return list;
}

} // namespace

bool RecordedFileName::parse(std::string_view name) {
    const std::size_t dot = name.find('.');
    const std::size_t dash = name.find('-', dot == name.npos ? name.size() : dot);
    if (dot == 0 || dash == name.npos)
        return false;
    const auto counted = numberOf(name.substr(dot + 1, dash - dot - 1));
    std::string_view rest;
    std::string_view text = name.substr(dash + 1);
    if (!counted || text.find('/') != text.npos)
        return false;
    service = name.substr(0, dot);
    number = *counted;
    if (text.ends_with(".xml")) {
        text.remove_suffix(4);
        kind = text.ends_with(REPLY) ? reply : request;
    } else if (cut(text, ".attachment", rest)) {
        kind = requestAttachment;
    } else if (cut(text, "_attachment", rest)) {
        kind = replyAttachment;
    } else {
        return false;
    }
    message = text;
    attachment = 1;
    if (!rest.empty()) {
        const auto counter = numberOf(rest);
        if (!counter || *counter == 1)
            return false; // the first has no number
        attachment = *counter;
    }
    return !message.empty();
}

std::string RecordedCall::id() const {
    return (session.empty() ? "" : session + "/") + service + "." + std::to_string(number);
}

std::vector<fs::path> RecordedCall::files() const {
    std::vector<fs::path> all;
    for (const fs::path& path : {request, reply})
        if (!path.empty())
            all.push_back(path);
    all.insert(all.end(), requestAttachments.begin(), requestAttachments.end());
    all.insert(all.end(), replyAttachments.begin(), replyAttachments.end());
    return all;
}

Recording Recording::read(const fs::path& directory) {
    Recording recording;
    recording.directory = directory;
    SortedCalls sorted;
    try {
        readFiles(directory, "", sorted, recording);
        for (const fs::directory_entry& entry : fs::directory_iterator(directory))
            if (!entry.is_symlink() && entry.is_directory())
                readFiles(entry.path(), entry.path().filename(), sorted, recording);
    } catch (const fs::filesystem_error& e) {
        throw TrafficError("the recording '" + directory.string() +
                           "' cannot be read: " + e.code().message());
    }
    for (auto& [key, call] : sorted.calls) {
        call.requestAttachments = inOrder(sorted.sent[key]);
        call.replyAttachments = inOrder(sorted.received[key]);
        recording.calls.push_back(std::move(call));
    }
    std::ranges::sort(recording.strangers);
    std::ranges::sort(recording.silentSessions);
    return recording;
}

Recording Recording::readCalls(const fs::path& directory) {
    Recording recording = read(directory);
    if (recording.calls.empty())
        throw TrafficError("there is no recorded call in '" + directory.string() + "'");
    return recording;
}

const RecordedCall& Recording::find(std::string_view id) const {
    const RecordedCall* found = nullptr;
    for (const RecordedCall& call : calls) {
        const std::string whole = call.id();
        if (whole == id)
            return call;
        if (whole.substr(call.session.empty() ? 0 : call.session.size() + 1) == id) {
            if (found != nullptr)
                throw TrafficError("several sessions have a call '" + std::string(id) +
                                   "'; name the session too, such as " + whole);
            found = &call;
        }
    }
    if (found == nullptr)
        throw TrafficError("the recording '" + directory.string() + "' has no call '" + std::string(id) +
                           "'; `mrl traffic list` shows what it has");
    return *found;
}

} // namespace mrl::tool
