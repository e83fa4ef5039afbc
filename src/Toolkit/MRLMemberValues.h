#pragma once

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLSchemaTypeI.h"

#include <typeinfo>

/// All members of an object in one go, for those who would otherwise ask for each by its name.
namespace mrl::detail {

/// Stores what getChildObject() gives for each member, in the order of getChildObjectNames(), and
/// returns the end. Specialised for each class by its generated source.
template <class T>
void** memberValues(T& object, void** values);

/// The same for an object that is a `T` itself; false, and nothing stored, for one of a class that is
/// only derived from it and may answer differently.
template <class T>
bool readMembers(MRLSchemaTypeI& object, void** values) {
    if (typeid(object) != typeid(T))
        return false;
    memberValues<T>(static_cast<T&>(object), values);
    return true;
}

// What the typed getters give, in the form of getChildObject().

inline void* memberValue(const char* text) {
    return const_cast<char*>(text);
}
inline void* memberValue(int* number) {
    return number;
}
inline void* memberValue(MRLBase64Binary* binary) {
    return binary;
}
inline void* memberValue(MRLSchemaTypeI* object) {
    return object;
}
inline void* memberValue(MRLSchemaTypeI& array) {
    return &array;
}

} // namespace mrl::detail
