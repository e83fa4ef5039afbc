#include "Common/MRLHBLMessage.h"

#include "Common/MRLMessageNumbers.h"

#include "HBLCore/HBLFailure.h"

MRLHBLMessage::MRLHBLMessage(std::uint32_t number)
    : HBLMessage(msg::component, number) {}

MRLHBLMessage* MRLHBLMessage::clone() const {
    return hblNew<MRLHBLMessage>(HBL_HERE, *this);
}
