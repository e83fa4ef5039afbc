#pragma once

#include "HBLCore/HBLMessage.h"

#include <cstdint>

/// A message of the toolkit's catalogue, as throw sites write it:
/// `HBL_THROW(MRLException(0) << (MRLHBLMessage(msg::unknownNamespace) << operation << uri), "...")`.
class MRL_EXPORT MRLHBLMessage : public HBLMessage {
public:
    explicit MRLHBLMessage(std::uint32_t number);
    MRLHBLMessage* clone() const override;
};
