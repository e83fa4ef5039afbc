#pragma once

#include "HBLCore/MRLExport.h"

class MRLSOAPFault;
class MRLTavelHeader;
class PLQOutputStream;

/// Writes a fault as an envelope.
class MRL_EXPORT MRLSOAPFaultSerializerI {
public:
    MRLSOAPFaultSerializerI() = default;
    MRLSOAPFaultSerializerI(const MRLSOAPFaultSerializerI&) = delete;
    MRLSOAPFaultSerializerI& operator=(const MRLSOAPFaultSerializerI&) = delete;
    virtual ~MRLSOAPFaultSerializerI();

    /// Writes the whole envelope. Code, text and actor go out as they are: they must be free of markup.
    /// @param header null leaves the header section empty.
    /// @param writeProlog 1 begins with the XML declaration.
    /// @param prettyPrint 1 puts the fault's own elements on lines of their own.
    /// @throws HBLAssertError for a null item in the detail; whatever `out` throws.
    virtual void serialize(const MRLTavelHeader* header, MRLSOAPFault& fault, PLQOutputStream& out,
                           int writeProlog, int prettyPrint) = 0;
};
