#pragma once

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLNullable.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLUtCrc32.h"

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <vector>

/// What is the same for every member of every generated class and message: the bodies of generated
/// code are calls of these. Names come as CRC-32 keys and become text only where it is needed.
namespace mrl::detail {

using ObjectType = MRLSchemaTypeI::ObjectType;

/// The key that named access switches over.
inline std::uint32_t childKey(const char* name) {
    return HBLUtCrc32::crc32(name, 0u);
}

// --- the value of a member, for MRLSchemaTypeI::getChildObject() and MRLMessageI::getParameter()

inline void* childObject(const char* text, int /*create*/) {
    return const_cast<char*>(text);
}
inline void* childObject(MRLNullable<int>& number, int create) {
    if (create != 0)
        number.isNull = 0;
    return number.get();
}
/// A reader stores 32 bits through the address, a writer reads 64.
inline void* childObject(MRLNullable<float>& number, int create) {
    if (create == 0)
        return number.getWide();
    number.isNull = 0;
    return number.get();
}
inline void* childObject(MRLSchemaTypeI* object, int /*create*/) {
    return object;
}
inline void* childObject(MRLBase64Binary* binary, int /*create*/) {
    return binary;
}
inline void* childObject(MRLSchemaTypeArrayI& array, int /*create*/) {
    return static_cast<MRLSchemaTypeI*>(&array);
}

// --- setting a member by name: the check of the type, then the store

/// The text that `obj`, a value of the string type `type`, stands for.
const char* textOf(void* obj, ObjectType type);
/// `obj` as a schema object when it is a `declared` or derived from it, else null.
MRLSchemaTypeI* asDeclared(void* obj, ObjectType type, ObjectType declared);
/// The type error of a member: both names become text here.
[[noreturn]] void memberTypeError(std::uint32_t ownerKey, std::uint32_t nameKey, ObjectType declared,
                                  ObjectType type);

void setText(const char*& field, void* obj, ObjectType type, std::uint32_t ownerKey, std::uint32_t nameKey);
void setBase64(MRLBase64Binary*& field, void* obj, ObjectType type, std::uint32_t ownerKey,
               std::uint32_t nameKey);
/// @param declared the primitive type of the member, for the type error.
template <class T>
void setNullable(MRLNullable<T>& field, void* obj, ObjectType type, ObjectType declared,
                 std::uint32_t ownerKey, std::uint32_t nameKey);
extern template void setNullable(MRLNullable<int>&, void*, ObjectType, ObjectType, std::uint32_t,
                                 std::uint32_t);
extern template void setNullable(MRLNullable<float>&, void*, ObjectType, ObjectType, std::uint32_t,
                                 std::uint32_t);

template <class T>
void setObject(T*& field, void* obj, ObjectType type, std::uint32_t ownerKey, std::uint32_t nameKey) {
    MRLSchemaTypeI* object = asDeclared(obj, type, T::s_objectType);
    if (object == nullptr)
        memberTypeError(ownerKey, nameKey, T::s_objectType, type);
    field = static_cast<T*>(object);
}

/// An array is filled in place.
[[noreturn]] void refuseArrayMember(const char* member, const char* className);

// --- deep copies: what is new belongs to the registry

/// A text that is a MRL_CharStreamable stays one: the copy refers to the same data.
const char* copyText(const char* text, MRLObjectRegistryI& registry);
MRLBase64Binary* copyBase64(const MRLBase64Binary* other, MRLObjectRegistryI& registry);
MRLSchemaTypeI* copyDeclared(const MRLSchemaTypeI& other, ObjectType declared, const char* className,
                             MRLObjectRegistryI& registry);

template <class T>
T* copyObject(const T* other, MRLObjectRegistryI& registry) {
    if (other == nullptr)
        return nullptr;
    return static_cast<T*>(copyDeclared(*other, T::s_objectType, T::s_className, registry));
}

// --- equality: two absent members are equal, an absent one and a present one are not

bool equalText(const char* a, const char* b);
bool equalBase64(const MRLBase64Binary* a, const MRLBase64Binary* b);

template <class T>
bool equalObject(const T* a, const T* b) {
    if (a == nullptr || b == nullptr)
        return a == b;
    return a->operator!=(*b) == 0;
}

// --- lazy getters

/// Registers a new object and gives it up to the registry.
void adopt(MRLObjectRegistryI& registry, std::unique_ptr<MRLSchemaTypeI> object);

template <class T>
T* lazyObject(T*& field, MRLObjectRegistryI* registry) {
    if (registry != nullptr && field == nullptr) {
        T* object = hblNew<T>(HBL_HERE);
        adopt(*registry, std::unique_ptr<MRLSchemaTypeI>(object));
        field = object;
    }
    return field;
}

/// Nothing can be made for a member of an abstract type.
template <class T>
T* lazyAbstract(T* field, MRLObjectRegistryI* registry) {
    if (registry != nullptr && field == nullptr) {
        HBL_ASSERT_NAMED(FALSE, "Creation on get not supported on abstract types");
    }
    return field;
}

MRLBase64Binary* lazyBase64(MRLBase64Binary*& field, MRLObjectRegistryI* registry);

// --- names

/// Appends the texts of the keys.
void appendNames(std::vector<const char*>& names, std::initializer_list<std::uint32_t> keys);

} // namespace mrl::detail
