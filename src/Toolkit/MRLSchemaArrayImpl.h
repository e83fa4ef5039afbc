#pragma once

#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaArray.h"
#include "Toolkit/MRLSchemaMembers.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLUintString.h"

#include "HBLCore/HBLFailure.h"

/// The definitions of MRLSchemaArray, for the sources that instantiate it.
namespace mrl::detail {

/// The index that the name of an element stands for.
/// @throws HBLAssertError for null, and for a name that is no number.
std::size_t elementIndex(const char* name);

/// A deep copy of an element.
/// @throws HBLAssertError when the copy is no `elementType`.
MRLSchemaTypeI* copyElementObject(const MRLSchemaTypeI& element, ObjectType elementType,
                                  MRLObjectRegistryI& registry);

// What differs between objects, text and numbers.

template <class T>
void* elementAddress(T*& element) {
    return static_cast<MRLSchemaTypeI*>(element);
}
inline void* elementAddress(const char*& element) {
    return const_cast<char*>(element);
}
inline void* elementAddress(int& element) {
    return &element;
}

template <class T>
bool takeElement(T*& element, void* obj, ObjectType type, ObjectType elementType) {
    element = static_cast<T*>(asDeclared(obj, type, elementType));
    return element != nullptr;
}
inline bool takeElement(const char*& element, void* obj, ObjectType type, ObjectType /*elementType*/) {
    if (MRLSchemaTypesFactory::isString(type) == 0)
        return false;
    element = textOf(obj, type);
    return true;
}
inline bool takeElement(int& element, void* obj, ObjectType type, ObjectType /*elementType*/) {
    if (MRLSchemaTypesFactory::isGeneratedType(type) != 0)
        return false;
    element = *static_cast<const int*>(obj);
    return true;
}

template <class T>
T* copyElement(T* element, ObjectType elementType, MRLObjectRegistryI& registry) {
    return static_cast<T*>(copyElementObject(*element, elementType, registry));
}
inline const char* copyElement(const char* element, ObjectType /*elementType*/,
                               MRLObjectRegistryI& registry) {
    return copyText(element, registry);
}
inline int copyElement(int element, ObjectType /*elementType*/, MRLObjectRegistryI& /*registry*/) {
    return element;
}

template <class T>
bool equalElement(const T* a, const T* b) {
    return equalObject(a, b);
}
inline bool equalElement(const char* a, const char* b) {
    return equalText(a, b);
}
inline bool equalElement(int a, int b) {
    return a == b;
}

} // namespace mrl::detail

template <class Self, class Element>
MRLSchemaArray<Self, Element>::MRLSchemaArray() = default;

template <class Self, class Element>
MRLSchemaArray<Self, Element>::MRLSchemaArray(const Self& other, MRLObjectRegistryI& registry) {
    copy(other, registry);
}

template <class Self, class Element>
MRLSchemaArray<Self, Element>::~MRLSchemaArray() = default;

template <class Self, class Element>
MRLSchemaTypeI::ObjectType MRLSchemaArray<Self, Element>::getObjectType() const {
    return Self::s_objectType;
}

template <class Self, class Element>
const std::string& MRLSchemaArray<Self, Element>::getGeneratedObjectName() const {
    static const std::string name(Self::s_className);
    return name;
}

template <class Self, class Element>
void* MRLSchemaArray<Self, Element>::getChildObject(const char* name, int /*create*/) {
    return mrl::detail::elementAddress(at(mrl::detail::elementIndex(name)));
}

template <class Self, class Element>
MRLSchemaTypeI::ObjectType MRLSchemaArray<Self, Element>::getChildType(const char* name) const {
    HBL_ASSERT(name);
    return Self::s_elementType;
}

template <class Self, class Element>
std::size_t MRLSchemaArray<Self, Element>::setChildObject(const char* name, void* obj, const ObjectType& type,
                                                          std::size_t* index) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    HBL_ASSERT(obj != NULL);
    value_type element{};
    if (!mrl::detail::takeElement(element, obj, type, Self::s_elementType))
        MRLSchemaTypesFactory::typeError(Self::s_schemaName, name, Self::s_elementType, type);
    if (index == nullptr) {
        m_vector.push_back(element);
        return m_vector.size();
    }
    const std::size_t* const idx = index;
    HBL_ASSERT(*idx > 0 && m_vector.size() >= *idx);
    m_vector[*idx - 1] = element;
    return *idx;
}

template <class Self, class Element>
void MRLSchemaArray<Self, Element>::getChildObjectNames(std::vector<const char*>& names,
                                                        bool /*reserve*/) const {
    mrl::detail::appendUintStrings(names, size());
}

template <class Self, class Element>
int MRLSchemaArray<Self, Element>::isa(ObjectType type) const {
    return type == Self::s_objectType ? 1 : 0;
}

template <class Self, class Element>
std::size_t MRLSchemaArray<Self, Element>::getChildObjectCount() const {
    return m_vector.size();
}

template <class Self, class Element>
std::size_t MRLSchemaArray<Self, Element>::size() const {
    return m_vector.size();
}

template <class Self, class Element>
int MRLSchemaArray<Self, Element>::operator==(const MRLSchemaTypeI& other) const {
    if (static_cast<const MRLSchemaTypeI*>(this) == &other)
        return 1;
    if (other.isa(Self::s_objectType) == 0)
        return 0;
    const auto& elements = static_cast<const MRLSchemaArray&>(other).m_vector;
    if (m_vector.size() != elements.size())
        return 0;
    for (std::size_t i = 0; i < m_vector.size(); ++i)
        if (!mrl::detail::equalElement(m_vector[i], elements[i]))
            return 0;
    return 1;
}

template <class Self, class Element>
int MRLSchemaArray<Self, Element>::operator!=(const MRLSchemaTypeI& other) const {
    return operator==(other) != 0 ? 0 : 1;
}

template <class Self, class Element>
void MRLSchemaArray<Self, Element>::copy(const Self& other, MRLObjectRegistryI& registry) {
    if (static_cast<const MRLSchemaTypeI*>(&other) == this)
        return;
    m_vector.clear();
    m_vector.reserve(other.size());
    for (const value_type& element : other)
        m_vector.push_back(mrl::detail::copyElement(element, Self::s_elementType, registry));
}
