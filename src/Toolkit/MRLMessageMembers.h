#pragma once

#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLSchemaMembers.h"

/// What is the same for every parameter of every generated message. A message names itself in its
/// failures, and a null value clears a parameter.
namespace mrl::detail {

template <class T>
MRLMessageI* createMessage() {
    return new T();
}

/// Whether `name` is the text of `key`.
bool isParameter(const char* name, std::uint32_t key);

void setTextParameter(const char*& field, void* value, ObjectType type, const char* messageName,
                      const char* paramName);
void setBase64Parameter(MRLBase64Binary*& field, void* value, ObjectType type, const char* messageName,
                        const char* paramName);
template <class T>
void setNullableParameter(MRLNullable<T>& field, void* value, ObjectType type, ObjectType declared,
                          const char* messageName, const char* paramName);
extern template void setNullableParameter(MRLNullable<int>&, void*, ObjectType, ObjectType, const char*,
                                          const char*);
extern template void setNullableParameter(MRLNullable<float>&, void*, ObjectType, ObjectType, const char*,
                                          const char*);
/// The checked object; null for a null value.
MRLSchemaTypeI* objectParameter(void* value, ObjectType type, ObjectType declared, const char* messageName,
                                const char* paramName);

template <class T>
void setObjectParameter(T*& field, void* value, ObjectType type, const char* messageName,
                        const char* paramName) {
    field = static_cast<T*>(objectParameter(value, type, T::s_objectType, messageName, paramName));
}

/// The type of the value held, or the declared one.
template <class T>
ObjectType parameterType(const T* field) {
    return field != nullptr ? field->getObjectType() : T::s_objectType;
}

} // namespace mrl::detail
