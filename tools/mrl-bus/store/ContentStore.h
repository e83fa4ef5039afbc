#pragma once

#include "store/Database.h"
#include "store/StoreObject.h"
#include "store/StoreRequests.h"
#include "store/StoreSeams.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

namespace mrl::bus {

struct StoreSettings {
    std::string file;      ///< empty: in memory, gone with the store
    bool readOnly = false; ///< refuse every change; an existing file is opened for reading only
    bool empty = false;    ///< a new store gets no sample content
    StoreSeams seams = StoreSeams::ofSystem();
};

/// The content store: a tree of typed objects with properties, selected by search paths. Each operation
/// happens as a whole or not at all. Any thread may call; operations run one after the other.
///
/// Refusals are StoreError, troubles of the database SqliteError.
class ContentStore {
public:
    /// Opens the store, and makes and fills it when it is new.
    /// @throws SqliteError, or StoreFileError when the file cannot be used.
    explicit ContentStore(StoreSettings settings);
    ~ContentStore();

    /// Objects that the caller may not read are left out of a selection; naming one of them exactly is
    /// refused with noRead, and entering a closed container with noPermission. A path that matches
    /// nothing gives nothing.
    std::vector<StoreObject> query(const QueryRequest& request);

    /// Adds objects to the container `parentPath`.
    /// @return them with the properties asked for, in the order given.
    std::vector<StoreObject> add(const std::string& parentPath, const std::vector<StoreObject>& objects,
                                 const AddOptions& options);

    /// Sets the properties that the objects hold; `searchPath` in each says which object is meant.
    std::vector<StoreObject> update(const std::vector<StoreObject>& objects, const UpdateOptions& options);

    /// @return how many objects went, those below included.
    std::int64_t remove(const std::vector<std::string>& searchPaths, const DeleteOptions& options);

private:
    /// One operation: the lock, the time limit, and its end as a refusal.
    template <class F>
    auto operate(F&& step);
    void refuseWhenReadOnly() const;

    const StoreSettings m_settings;
    std::mutex m_mutex;
    Database m_database;
};

} // namespace mrl::bus
