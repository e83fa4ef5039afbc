#include "report/Conversations.h"

#include "store/StoreError.h"
#include "store/StoreSeams.h"

#include <algorithm>

namespace mrl::bus {

Conversations::~Conversations() {
    std::unique_lock lock(m_mutex);
    while (!m_conversations.empty())
        cancel(lock, m_conversations.begin());
}

/// Takes a conversation out of the list and waits for its thread, which may be about to end.
void Conversations::cancel(std::unique_lock<std::mutex>& lock, List::iterator at) {
    const std::shared_ptr<Conversation> conversation = *at;
    m_conversations.erase(at);
    conversation->cancelled = true;
    m_changed.notify_all();
    lock.unlock();
    if (conversation->worker.joinable())
        conversation->worker.join();
    lock.lock();
}

void Conversations::forgetOld() {
    const Clock::time_point oldest = m_settings.now() - m_settings.keepTime;
    std::unique_lock lock(m_mutex);
    for (;;) {
        const auto old = std::ranges::find_if(
            m_conversations, [&](const auto& one) { return one->complete && one->touched < oldest; });
        if (old == m_conversations.end())
            return;
        cancel(lock, old);
    }
}

std::string Conversations::start(const std::string& owner, ReportJob job, std::function<Table()> read) {
    forgetOld();
    auto conversation = std::make_shared<Conversation>();
    conversation->id = StoreSeams::ofSystem().newId();
    conversation->owner = owner;
    conversation->job = std::move(job);
    conversation->touched = m_settings.now();
    const std::lock_guard lock(m_mutex);
    if (m_conversations.size() >= m_settings.most)
        throw StoreError(StoreErrorCode::tooMuch, "There are " + std::to_string(m_conversations.size()) +
                                                      " conversations; release those that are not needed.");
    m_conversations.push_back(conversation);
    Conversation& working = *conversation;
    conversation->worker = std::thread([this, &working, step = std::move(read)] { work(working, step); });
    return conversation->id;
}

void Conversations::work(Conversation& conversation, const std::function<Table()>& read) {
    std::vector<ReportOutput> outputs;
    std::exception_ptr failure;
    try {
        const Table table = read();
        for (const OutputFormat* format : conversation.job.formats)
            outputs.push_back({format, format->render(table)});
    } catch (...) {
        failure = std::current_exception(); // whoever waits hears of it
    }
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, m_settings.workTime, [&] { return conversation.cancelled; });
    conversation.outputs = std::move(outputs);
    conversation.failure = failure;
    conversation.complete = true;
    m_changed.notify_all();
}

std::shared_ptr<Conversations::Conversation> Conversations::find(const std::string& owner,
                                                                 const std::string& id) {
    const auto found = std::ranges::find_if(
        m_conversations, [&](const auto& one) { return one->id == id && one->owner == owner; });
    if (found == m_conversations.end())
        throw StoreError(
            StoreErrorCode::notFound,
            "There is no such conversation of yours: it was released, cancelled or forgotten. Run "
            "the report again.");
    return *found;
}

Conversations::View Conversations::wait(const std::string& owner, const std::string& id,
                                        std::chrono::milliseconds limit) {
    std::unique_lock lock(m_mutex);
    const std::shared_ptr<Conversation> conversation = find(owner, id);
    m_changed.wait_for(lock, limit, [&] { return conversation->complete || conversation->cancelled; });
    conversation->touched = m_settings.now();
    if (conversation->cancelled)
        find(owner, id);
    if (conversation->failure)
        std::rethrow_exception(conversation->failure);
    return {conversation->job, conversation->complete, conversation->outputs};
}

void Conversations::end(const std::string& owner, const std::string& id) {
    std::unique_lock lock(m_mutex);
    const auto conversation = find(owner, id);
    cancel(lock, std::ranges::find(m_conversations, conversation));
}

} // namespace mrl::bus
