#pragma once

#include "HBLCore/MRLExport.h"

class MRLDOMObjectSerializerI;

/// Makes and takes back DOM object serializers. One instance for the process; thread-safe.
class MRL_EXPORT MRLDOMObjectSerializerFactory {
public:
    static MRLDOMObjectSerializerFactory& getInstance();

    MRLDOMObjectSerializerFactory(const MRLDOMObjectSerializerFactory&) = delete;
    MRLDOMObjectSerializerFactory& operator=(const MRLDOMObjectSerializerFactory&) = delete;

    /// A new instance, to be given back with destroy().
    /// @throws HBLOutOfMemoryError
    virtual MRLDOMObjectSerializerI* create();

    /// Deletes what create() gave; null is allowed.
    virtual void destroy(MRLDOMObjectSerializerI* instance);

    virtual ~MRLDOMObjectSerializerFactory();

private:
    MRLDOMObjectSerializerFactory() = default;
};
