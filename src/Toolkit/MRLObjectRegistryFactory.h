#pragma once

#include "HBLCore/MRLExport.h"

class MRLObjectRegistryI;

/// Makes and ends object registries. One instance for the process; thread-safe.
class MRL_EXPORT MRLObjectRegistryFactory {
public:
    static MRLObjectRegistryFactory& getInstance();

    /// A new registry with a reference count of 0, owned by the caller.
    /// @throws HBLOutOfMemoryError
    virtual MRLObjectRegistryI* create();

    /// Deletes `registry` at once, whatever its reference count; null is allowed. Code that shares a
    /// registry by references releases it with removeReference() and must not call this.
    virtual void destroy(MRLObjectRegistryI* registry);

    virtual ~MRLObjectRegistryFactory();

    MRLObjectRegistryFactory(const MRLObjectRegistryFactory&) = delete;
    MRLObjectRegistryFactory& operator=(const MRLObjectRegistryFactory&) = delete;

private:
    MRLObjectRegistryFactory() = default;
};
