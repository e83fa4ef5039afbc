#pragma once

#include "HBLCore/HBLMessageComponents.h"

/// A message whose text stands in the catalogue of its component. Without a text (unknown number, no
/// catalogue, broken text) it reads as component, number and parameters.
class MRL_EXPORT HBLMessage : public HBLMessageComponents {
public:
    HBLMessage(const char* component, std::uint32_t number);

    HBLMessage* clone() const override;
    void format(const char* language, std::string& text) const override;
};
