// Generated from catalogue/services/oldPortType.toml.
#pragma once

#include "Toolkit/MRLPortTypeBase.h"

#include "HBLCore/MRLExport.h"

/// The service `oldPortType`.
class MRL_EXPORT MRLOldPortType : public MRLPortTypeBase {
public:
    /// Made at its first use, and there until the process ends. Thread-safe.
    static MRLOldPortType& getInstance();

private:
    MRLOldPortType();
    ~MRLOldPortType() override = default;

    static const OperationRow s_operations[2];
};
