#include "Toolkit/MRLMessageMembers.h"

#include "I18NRes/zt5omsymbols1.h"
#include "Toolkit/MRLSchemaTypesFactory.h"

#include <cstring>

namespace mrl::detail {

bool isParameter(const char* name, std::uint32_t key) {
    return std::strcmp(name, zt5omsymbols1::getChar(key)) == 0;
}

void setTextParameter(const char*& field, void* value, ObjectType type, const char* messageName,
                      const char* paramName) {
    if (MRLSchemaTypesFactory::isString(type) == 0)
        MRLSchemaTypesFactory::typeError(messageName, paramName, MRLSchemaTypeI::eString, type);
    field = value == nullptr ? nullptr : textOf(value, type);
}

void setBase64Parameter(MRLBase64Binary*& field, void* value, ObjectType type, const char* messageName,
                        const char* paramName) {
    if (MRLSchemaTypesFactory::isBase64(type) == 0)
        MRLSchemaTypesFactory::typeError(messageName, paramName, MRLSchemaTypeI::eBase64Binary, type);
    field = static_cast<MRLBase64Binary*>(value);
}

template <class T>
void setNullableParameter(MRLNullable<T>& field, void* value, ObjectType type, ObjectType declared,
                          const char* messageName, const char* paramName) {
    if (MRLSchemaTypesFactory::isGeneratedType(type) != 0)
        MRLSchemaTypesFactory::typeError(messageName, paramName, declared, type);
    if (value == nullptr)
        field.reset();
    else
        field.set(*static_cast<const T*>(value));
}

template void setNullableParameter(MRLNullable<int>&, void*, ObjectType, ObjectType, const char*,
                                   const char*);
template void setNullableParameter(MRLNullable<float>&, void*, ObjectType, ObjectType, const char*,
                                   const char*);

MRLSchemaTypeI* objectParameter(void* value, ObjectType type, ObjectType declared, const char* messageName,
                                const char* paramName) {
    if (MRLSchemaTypesFactory::isGeneratedType(type) == 0)
        MRLSchemaTypesFactory::typeError(messageName, paramName, declared, type);
    auto* const object = static_cast<MRLSchemaTypeI*>(value);
    if (object != nullptr && object->isa(declared) == 0)
        MRLSchemaTypesFactory::typeError(messageName, paramName, declared, type);
    return object;
}

} // namespace mrl::detail
