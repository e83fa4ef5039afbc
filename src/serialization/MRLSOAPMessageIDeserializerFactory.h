#pragma once

#include "HBLCore/MRLExport.h"

class MRLSOAPMessageIDeserializerI;

/// Makes and takes back message deserializers. One instance for the process; thread-safe.
class MRL_EXPORT MRLSOAPMessageIDeserializerFactory {
public:
    static MRLSOAPMessageIDeserializerFactory& getInstance();

    MRLSOAPMessageIDeserializerFactory(const MRLSOAPMessageIDeserializerFactory&) = delete;
    MRLSOAPMessageIDeserializerFactory& operator=(const MRLSOAPMessageIDeserializerFactory&) = delete;

    /// A new instance, to be given back with destroy().
    /// @throws HBLOutOfMemoryError
    virtual MRLSOAPMessageIDeserializerI* create();

    /// Deletes what create() gave; null is allowed.
    virtual void destroy(MRLSOAPMessageIDeserializerI* instance);

    virtual ~MRLSOAPMessageIDeserializerFactory();

private:
    MRLSOAPMessageIDeserializerFactory() = default;
};
