#pragma once

#include "report/Rendering.h"

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <list>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace mrl::bus {

/// One output of a report.
struct ReportOutput {
    const OutputFormat* format;
    std::string bytes;
};

/// What a conversation is about, for its replies.
struct ReportJob {
    std::string objectPath;
    std::vector<const OutputFormat*> formats;
    bool attached = true;    ///< outputs travel as attachments
    bool compressed = false; ///< and packed
};

/// Reports at work: each conversation is rendered by a thread of its own, and kept until it is released,
/// cancelled or forgotten. Any thread may call.
class Conversations {
public:
    using Clock = std::chrono::steady_clock;

    struct Settings {
        std::chrono::milliseconds workTime{0}; ///< what a report takes longer than it needs
        std::chrono::seconds keepTime{300};    ///< without a request about it
        std::size_t most = 64;                 ///< at a time
        std::function<Clock::time_point()> now = [] { return Clock::now(); };
    };

    explicit Conversations(Settings settings)
        : m_settings(std::move(settings)) {}
    /// Waits for the threads, which are told to end.
    ~Conversations();
    Conversations(const Conversations&) = delete;
    Conversations& operator=(const Conversations&) = delete;

    /// Starts a conversation.
    /// @param owner whoever else asks about it is told that there is none.
    /// @return its id
    /// @throws StoreError tooMuch when there are too many.
    std::string start(const std::string& owner, ReportJob job, std::function<Table()> read);

    /// What is known of a conversation.
    struct View {
        ReportJob job;
        bool complete = false;
        std::vector<ReportOutput> outputs; ///< when complete
    };

    /// Waits until the report is complete, at most `limit`.
    /// @throws StoreError notFound when there is no such conversation, or what the rendering ended in.
    View wait(const std::string& owner, const std::string& id, std::chrono::milliseconds limit);

    /// Ends a conversation, at work or not.
    /// @throws StoreError notFound
    void end(const std::string& owner, const std::string& id);

private:
    struct Conversation {
        std::string id;
        std::string owner;
        ReportJob job;
        Clock::time_point touched;
        bool complete = false;
        bool cancelled = false;
        std::exception_ptr failure;
        std::vector<ReportOutput> outputs;
        std::thread worker;
    };
    using List = std::list<std::shared_ptr<Conversation>>;

    void work(Conversation& conversation, const std::function<Table()>& read);
    std::shared_ptr<Conversation> find(const std::string& owner, const std::string& id);
    void forgetOld();
    void cancel(std::unique_lock<std::mutex>& lock, List::iterator at);

    const Settings m_settings;
    std::mutex m_mutex;
    std::condition_variable m_changed;
    List m_conversations;
};

} // namespace mrl::bus
