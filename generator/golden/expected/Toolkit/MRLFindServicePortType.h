// Generated from catalogue/services/findService.toml.
#pragma once

#include "Toolkit/MRLPortTypeBase.h"

#include "HBLCore/MRLExport.h"

/// Finds things.
class MRL_EXPORT MRLFindServicePortType : public MRLPortTypeBase {
public:
    /// Made at its first use, and there until the process ends. Thread-safe.
    static MRLFindServicePortType& getInstance();

private:
    MRLFindServicePortType();
    ~MRLFindServicePortType() override = default;

    static const OperationRow s_operations[4];
    static const ParamTypeRow s_paramTypes[6];
};
