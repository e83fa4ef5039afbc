#pragma once

#include "HBLCore/MRLExport.h"

class MRLDOMObjectDeserializerI;

/// Makes and takes back DOM object deserializers. One instance for the process; thread-safe.
class MRL_EXPORT MRLDOMObjectDeserializerFactory {
public:
    static MRLDOMObjectDeserializerFactory& getInstance();

    MRLDOMObjectDeserializerFactory(const MRLDOMObjectDeserializerFactory&) = delete;
    MRLDOMObjectDeserializerFactory& operator=(const MRLDOMObjectDeserializerFactory&) = delete;

    /// A new instance, to be given back with destroy().
    /// @throws HBLOutOfMemoryError
    virtual MRLDOMObjectDeserializerI* create();

    /// Deletes what create() gave; null is allowed.
    virtual void destroy(MRLDOMObjectDeserializerI* instance);

    virtual ~MRLDOMObjectDeserializerFactory();

private:
    MRLDOMObjectDeserializerFactory() = default;
};
