#pragma once

#include "HBLCore/MRLExport.h"

class MRLSOAPMessageISerializerI;

/// Makes and takes back message serializers. One instance for the process; thread-safe.
class MRL_EXPORT MRLSOAPMessageISerializerFactory {
public:
    static MRLSOAPMessageISerializerFactory& getInstance();

    MRLSOAPMessageISerializerFactory(const MRLSOAPMessageISerializerFactory&) = delete;
    MRLSOAPMessageISerializerFactory& operator=(const MRLSOAPMessageISerializerFactory&) = delete;

    /// A new instance, to be given back with destroy().
    /// @throws HBLOutOfMemoryError
    virtual MRLSOAPMessageISerializerI* create();

    /// Deletes what create() gave; null is allowed.
    virtual void destroy(MRLSOAPMessageISerializerI* instance);

    virtual ~MRLSOAPMessageISerializerFactory();

private:
    MRLSOAPMessageISerializerFactory() = default;
};
