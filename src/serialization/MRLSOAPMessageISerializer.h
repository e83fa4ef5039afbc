#pragma once

#include "serialization/MRLSOAPMessageISerializerI.h"

/// The serializer of messages. Without state: one instance may be used again and again.
class MRL_EXPORT MRLSOAPMessageISerializer : public MRLSOAPMessageISerializerI {
public:
    MRLSOAPMessageISerializer() = default;
    ~MRLSOAPMessageISerializer() override;

    void serialize(MRLPortTypeBinding& binding, MRLMessageI& message, PLQOutputStream& out,
                   PLQOutputStream* altOut, int writeProlog, int writeNulls) override;
};
