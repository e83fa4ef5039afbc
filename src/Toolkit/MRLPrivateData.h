#pragma once

#include "HBLCore/MRLExport.h"

/// Base of what a subclass hangs on a value class. Equal is only what is the same object.
class MRL_EXPORT MRLPrivateData {
public:
    MRLPrivateData() = default;
    MRLPrivateData(const MRLPrivateData&) = delete;
    MRLPrivateData& operator=(const MRLPrivateData&) = delete;
    virtual ~MRLPrivateData();

    int operator==(const MRLPrivateData& other) const;
    int operator!=(const MRLPrivateData& other) const;
};
