#pragma once

#include "soap/Call.h"
#include "store/ContentStore.h"

class MRLContentAdd_Reply;
class MRLContentAdd_Request;
class MRLContentDelete_Reply;
class MRLContentDelete_Request;
class MRLContentQuery_Reply;
class MRLContentQuery_Request;
class MRLContentUpdate_Reply;
class MRLContentUpdate_Request;

namespace mrl::bus {

/// The operations of the content manager service over the content store: query, add, update, delete.
/// Any thread may call.
class ContentManager {
public:
    explicit ContentManager(ContentStore& store)
        : m_store(store) {}

    /// Performs the call and fills its output message.
    /// @return false when the operation is none of these.
    /// @throws StoreError for a refusal, SqliteError for trouble of the store.
    bool perform(Call& call);

private:
    void query(MRLContentQuery_Request& request, MRLContentQuery_Reply& reply,
               OutgoingAttachments& attachments);
    void add(MRLContentAdd_Request& request, MRLContentAdd_Reply& reply);
    void update(MRLContentUpdate_Request& request, MRLContentUpdate_Reply& reply);
    void remove(MRLContentDelete_Request& request, MRLContentDelete_Reply& reply);

    ContentStore& m_store;
};

} // namespace mrl::bus
