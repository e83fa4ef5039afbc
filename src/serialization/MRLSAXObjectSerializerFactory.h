#pragma once

#include "HBLCore/MRLExport.h"

class MRLSAXObjectSerializerI;

/// Makes and takes back SAX object serializers. One instance for the process; thread-safe.
class MRL_EXPORT MRLSAXObjectSerializerFactory {
public:
    static MRLSAXObjectSerializerFactory& getInstance();

    MRLSAXObjectSerializerFactory(const MRLSAXObjectSerializerFactory&) = delete;
    MRLSAXObjectSerializerFactory& operator=(const MRLSAXObjectSerializerFactory&) = delete;

    /// A new instance, to be given back with destroy().
    /// @throws HBLOutOfMemoryError
    virtual MRLSAXObjectSerializerI* create();

    /// Deletes what create() gave; null is allowed.
    virtual void destroy(MRLSAXObjectSerializerI* instance);

    virtual ~MRLSAXObjectSerializerFactory();

private:
    MRLSAXObjectSerializerFactory() = default;
};
