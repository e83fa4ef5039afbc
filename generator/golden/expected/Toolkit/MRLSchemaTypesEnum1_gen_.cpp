// Generated from the catalogue: the values of the enumerations, sorted by number.
#include "Toolkit/MRLSchemaEnumImpl.h"
#include "Toolkit/MRLShapeEnum.h"
#include "Toolkit/MRLLinkEnum.h"

namespace detail = mrl::detail;

// -- MRLShapeEnum -------------------------------------------------------------------------------------------

static constexpr detail::EnumValue g_MRLShapeEnumValues[] = {
    {0x053E259B, "semi-round"},
    {0x9D50AFBC, "not_round"},
    {0xC5EEEA34, "round"},
};

constinit const detail::EnumDescriptor MRLShapeEnum::s_descriptor = {
    MRLShapeEnum::s_className, "shapeEnum", g_MRLShapeEnumValues};

MRLShapeEnum::MRLShapeEnum() = default;

MRLShapeEnum::MRLShapeEnum(const MRLShapeEnum& other, MRLObjectRegistryI& registry)
    : MRLSchemaEnum(other, registry) {}

MRLShapeEnum::~MRLShapeEnum() = default;

void MRLShapeEnum::setValue(const char* text) {
    m_value = detail::stringToEnum(s_descriptor, text);
}

MRLShapeEnum::Enum MRLShapeEnum::stringToEnum(const char* name) {
    return static_cast<Enum>(detail::stringToEnum(s_descriptor, name));
}

const char* MRLShapeEnum::enumToString(Enum value) {
    return detail::enumToString(s_descriptor, value);
}

template class MRLSchemaEnum<MRLShapeEnum>;

// -- MRLLinkEnum --------------------------------------------------------------------------------------------

static constexpr detail::EnumValue g_MRLLinkEnumValues[] = {
    {0x6A8C9B79, "http://developer.golden.example/vrok/constants/linkEnum#previous"},
    {0xCECF37BB, "http://developer.golden.example/vrok/constants/linkEnum#next"},
};

constinit const detail::EnumDescriptor MRLLinkEnum::s_descriptor = {
    MRLLinkEnum::s_className, "linkEnum", g_MRLLinkEnumValues};

MRLLinkEnum::MRLLinkEnum() = default;

MRLLinkEnum::MRLLinkEnum(const MRLLinkEnum& other, MRLObjectRegistryI& registry)
    : MRLSchemaEnum(other, registry) {}

MRLLinkEnum::~MRLLinkEnum() = default;

void MRLLinkEnum::setValue(const char* text) {
    m_value = detail::stringToEnum(s_descriptor, text);
}

MRLLinkEnum::Enum MRLLinkEnum::stringToEnum(const char* name) {
    return static_cast<Enum>(detail::stringToEnum(s_descriptor, name));
}

const char* MRLLinkEnum::enumToString(Enum value) {
    return detail::enumToString(s_descriptor, value);
}

template class MRLSchemaEnum<MRLLinkEnum>;
