#include "HBLCore/HBLMessage.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLMessageCatalogue.h"

HBLMessage::HBLMessage(const char* component, std::uint32_t number)
    : HBLMessageComponents(component, number) {}

HBLMessage* HBLMessage::clone() const {
    return hblNew<HBLMessage>(HBL_HERE, *this);
}

void HBLMessage::format(const char* language, std::string& text) const {
    text = HBLMessageCatalogue::format(*this, language);
}
