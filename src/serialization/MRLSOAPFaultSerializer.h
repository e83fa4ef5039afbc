#pragma once

#include "serialization/MRLSOAPFaultSerializerI.h"

/// The writer of faults. A security exception goes out inside the first message of each undocumented
/// item; with a documented detail, or without messages, it has no place on the wire.
class MRL_EXPORT MRLSOAPFaultSerializer : public MRLSOAPFaultSerializerI {
public:
    MRLSOAPFaultSerializer() = default;
    ~MRLSOAPFaultSerializer() override;

    void serialize(const MRLTavelHeader* header, MRLSOAPFault& fault, PLQOutputStream& out, int writeProlog,
                   int prettyPrint) override;

private:
    int m_prettyPrint = 0;
};
