#pragma once

#include "HBLCore/MRLExport.h"

class MRLObjectSerializerI;

/// Makes and takes back object serializers. One instance for the process; thread-safe.
class MRL_EXPORT MRLObjectSerializerFactory {
public:
    static MRLObjectSerializerFactory& getInstance();

    MRLObjectSerializerFactory(const MRLObjectSerializerFactory&) = delete;
    MRLObjectSerializerFactory& operator=(const MRLObjectSerializerFactory&) = delete;

    /// A new instance, to be given back with destroy().
    /// @throws HBLOutOfMemoryError
    virtual MRLObjectSerializerI* create();

    /// Deletes what create() gave; null is allowed.
    virtual void destroy(MRLObjectSerializerI* instance);

    virtual ~MRLObjectSerializerFactory();

private:
    MRLObjectSerializerFactory() = default;
};
