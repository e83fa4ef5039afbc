#pragma once

#include "HBLCore/MRLExport.h"

class MRLSOAPFaultSerializerI;

/// Makes and takes back fault serializers. One instance for the process; thread-safe.
class MRL_EXPORT MRLSOAPFaultSerializerFactory {
public:
    static MRLSOAPFaultSerializerFactory& getInstance();

    MRLSOAPFaultSerializerFactory(const MRLSOAPFaultSerializerFactory&) = delete;
    MRLSOAPFaultSerializerFactory& operator=(const MRLSOAPFaultSerializerFactory&) = delete;

    /// A new instance, to be given back with destroy().
    /// @throws HBLOutOfMemoryError
    virtual MRLSOAPFaultSerializerI* create();

    /// Deletes what create() gave; null is allowed.
    virtual void destroy(MRLSOAPFaultSerializerI* instance);

    virtual ~MRLSOAPFaultSerializerFactory();

private:
    MRLSOAPFaultSerializerFactory() = default;
};
