#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

/// A sequence that is a schema object itself. Its children are named "0", "1", ... in reading;
/// setChildObject() counts its positions from 1.
class MRL_EXPORT MRLSchemaTypeArrayI : public MRLSchemaTypeI {
public:
    ~MRLSchemaTypeArrayI() override;

    /// The number of elements.
    virtual std::size_t size() const = 0;
};
