#include "HBLCore/HBLMessageComponents.h"

#include "HBLCore/HBLFailure.h"

HBLMessageComponents::HBLMessageComponents(const char* component, std::uint32_t number)
    : m_component(component ? component : "")
    , m_number(number) {}

void HBLMessageComponents::addParameter(const HBLMessageParm& parameter) {
    hblRethrowing("HBLMessageComponents::addParameter", [&] { m_parameters.push_back(parameter); });
}

HBLMessageComponents& HBLMessageComponents::operator<<(const HBLMessageParm& parameter) {
    addParameter(parameter);
    return *this;
}
