#pragma once

#include "HBLCore/MRLExport.h"

class MRLMessageI;
class MRLPortTypeBinding;
class PLQOutputStream;

/// Writes a message as an envelope.
class MRL_EXPORT MRLSOAPMessageISerializerI {
public:
    MRLSOAPMessageISerializerI() = default;
    MRLSOAPMessageISerializerI(const MRLSOAPMessageISerializerI&) = delete;
    MRLSOAPMessageISerializerI& operator=(const MRLSOAPMessageISerializerI&) = delete;
    virtual ~MRLSOAPMessageISerializerI();

    /// Writes `message`, the input or the output message of `binding`.
    /// @param altOut receives the same bytes as `out`; null for none.
    /// @param writeProlog 1 begins with the XML declaration.
    /// @param writeNulls 1 writes absent members as nil elements.
    /// @throws HBLAssertError, before any byte is written, for a message of another type; whatever
    ///         the streams throw, with what was written so far left there.
    virtual void serialize(MRLPortTypeBinding& binding, MRLMessageI& message, PLQOutputStream& out,
                           PLQOutputStream* altOut, int writeProlog, int writeNulls) = 0;
};
