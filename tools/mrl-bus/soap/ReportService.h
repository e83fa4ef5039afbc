#pragma once

#include "report/Conversations.h"
#include "soap/Call.h"
#include "store/ContentStore.h"

class MRLAsynchReply;
class MRLAsynchRequest;
class MRLMessageI;
class MRLOptionArray;
class MRLSearchPathSingleObject;

namespace mrl::bus {

/// Runs reports for the report services: run, wait, getOutput, cancel, release. A report shows what stands
/// beside it in the store. Any thread may call.
class ReportService {
public:
    ReportService(ContentStore& store, Conversations& conversations)
        : m_store(store)
        , m_conversations(conversations) {}

    /// Performs the call.
    /// @return false when the operation is none of these.
    /// @throws StoreError for a refusal.
    bool perform(Call& call);

private:
    void run(Call& call, MRLSearchPathSingleObject* objectPath, MRLOptionArray* options,
             MRLAsynchReply& reply);
    void wait(Call& call, MRLAsynchRequest* conversation, MRLOptionArray* options, MRLAsynchReply& reply);
    void output(Call& call, MRLAsynchRequest* conversation, MRLAsynchReply& reply);
    std::string runnable(const std::string& path);
    Table read(const std::string& path);

    ContentStore& m_store;
    Conversations& m_conversations;
};

} // namespace mrl::bus
