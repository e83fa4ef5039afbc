#pragma once

#include "Toolkit/MRLSchemaEnum.h"

/// The definitions of MRLSchemaEnum, for the sources that instantiate it.
namespace mrl::detail {

/// @throws HBLAssertError for 0.
void requireInitialized(const EnumDescriptor& descriptor, std::uint32_t value);

/// The value of the text that `obj`, a MRL_String, holds once it is trimmed.
std::uint32_t enumFromChild(const EnumDescriptor& descriptor, const char* name, void* obj,
                            MRLSchemaTypeI::ObjectType type);

} // namespace mrl::detail

template <class Self>
MRLSchemaEnum<Self>::MRLSchemaEnum() = default;

template <class Self>
MRLSchemaEnum<Self>::MRLSchemaEnum(const Self& other, MRLObjectRegistryI& /*registry*/)
    : m_value(static_cast<const MRLSchemaEnum&>(other).m_value) {}

template <class Self>
MRLSchemaEnum<Self>::~MRLSchemaEnum() = default;

template <class Self>
MRLSchemaTypeI::ObjectType MRLSchemaEnum<Self>::getObjectType() const {
    return Self::s_objectType;
}

template <class Self>
const std::string& MRLSchemaEnum<Self>::getGeneratedObjectName() const {
    static const std::string name(Self::s_descriptor.className);
    return name;
}

template <class Self>
void* MRLSchemaEnum<Self>::getChildObject(const char* /*name*/, int create) {
    if (create == 0)
        return const_cast<char*>(toString());
    mrl::detail::requireInitialized(Self::s_descriptor, m_value);
    return &m_value;
}

template <class Self>
MRLSchemaTypeI::ObjectType MRLSchemaEnum<Self>::getChildType(const char* /*name*/) const {
    return eString;
}

template <class Self>
std::size_t MRLSchemaEnum<Self>::setChildObject(const char* name, void* obj, const ObjectType& type,
                                                std::size_t* /*index*/) {
    m_value = mrl::detail::enumFromChild(Self::s_descriptor, name, obj, type);
    return 0;
}

template <class Self>
void MRLSchemaEnum<Self>::getChildObjectNames(std::vector<const char*>& names, bool /*reserve*/) const {
    names.push_back("");
}

template <class Self>
int MRLSchemaEnum<Self>::isa(ObjectType type) const {
    return type == Self::s_objectType ? 1 : 0;
}

template <class Self>
std::size_t MRLSchemaEnum<Self>::getChildObjectCount() const {
    return 1;
}

template <class Self>
int MRLSchemaEnum<Self>::operator==(const MRLSchemaTypeI& other) const {
    return other.isa(Self::s_objectType) != 0 && m_value == static_cast<const MRLSchemaEnum&>(other).m_value
               ? 1
               : 0;
}

template <class Self>
int MRLSchemaEnum<Self>::operator!=(const MRLSchemaTypeI& other) const {
    return operator==(other) != 0 ? 0 : 1;
}

template <class Self>
const char* MRLSchemaEnum<Self>::toString() const {
    return mrl::detail::enumToString(Self::s_descriptor, m_value);
}
