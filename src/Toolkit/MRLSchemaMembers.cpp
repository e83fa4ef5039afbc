#include "Toolkit/MRLSchemaMembers.h"

#include "I18NRes/zt5omsymbols1.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_String.h"

#include <cstring>
#include <string>

namespace mrl::detail {

namespace {

// The one member of a text class has the empty name, which is no symbol.
const char* nameOf(std::uint32_t key) {
    return key == 0 ? "" : zt5omsymbols1::getChar(key);
}

/// Gives what is held to the registry; it stays the holder's when the registry cannot take it.
template <class Holder, class... Mode>
auto* givenTo(MRLObjectRegistryI& registry, Holder& holder, Mode... mode) {
    hblRethrowing(nullptr, [&] { registry.registerPointer(holder.get(), mode...); });
    return holder.release();
}

} // namespace

const char* textOf(void* obj, ObjectType type) {
    if (type == MRLSchemaTypeI::eCharStreamable)
        return static_cast<const char*>(obj);
    return static_cast<MRL_String*>(obj)->str();
}

MRLSchemaTypeI* asDeclared(void* obj, ObjectType type, ObjectType declared) {
    if (MRLSchemaTypesFactory::isGeneratedType(type) == 0)
        return nullptr;
    auto* const object = static_cast<MRLSchemaTypeI*>(obj);
    return object->isa(declared) != 0 ? object : nullptr;
}

void memberTypeError(std::uint32_t ownerKey, std::uint32_t nameKey, ObjectType declared, ObjectType type) {
    MRLSchemaTypesFactory::typeError(nameOf(ownerKey), nameOf(nameKey), declared, type);
}

void setText(const char*& field, void* obj, ObjectType type, std::uint32_t ownerKey, std::uint32_t nameKey) {
    if (MRLSchemaTypesFactory::isString(type) == 0)
        memberTypeError(ownerKey, nameKey, MRLSchemaTypeI::eString, type);
    field = textOf(obj, type);
}

void setBase64(MRLBase64Binary*& field, void* obj, ObjectType type, std::uint32_t ownerKey,
               std::uint32_t nameKey) {
    if (MRLSchemaTypesFactory::isBase64(type) == 0)
        memberTypeError(ownerKey, nameKey, MRLSchemaTypeI::eBase64Binary, type);
    field = static_cast<MRLBase64Binary*>(obj);
}

template <class T>
void setNullable(MRLNullable<T>& field, void* obj, ObjectType type, ObjectType declared,
                 std::uint32_t ownerKey, std::uint32_t nameKey) {
    if (MRLSchemaTypesFactory::isGeneratedType(type) != 0)
        memberTypeError(ownerKey, nameKey, declared, type);
    field.set(*static_cast<const T*>(obj));
}

template void setNullable(MRLNullable<int>&, void*, ObjectType, ObjectType, std::uint32_t, std::uint32_t);
template void setNullable(MRLNullable<float>&, void*, ObjectType, ObjectType, std::uint32_t, std::uint32_t);

void refuseArrayMember(const char* member, const char* className) {
    hblAssertFailed(std::string("HBL_ASSERT_NAMED(FALSE, \"The '") + member +
                        "' element cannot be set through the '" + className +
                        "::setChildObject()' method.\");",
                    HBL_HERE, "setChildObject");
}

const char* copyText(const char* text, MRLObjectRegistryI& registry) {
    if (text == nullptr)
        return nullptr;
    if (MRL_CharStreamable::isCharStreamable(text)) {
        std::unique_ptr<MRL_CharStreamable> copy(hblNew<MRL_CharStreamable>(HBL_HERE, text));
        return givenTo(registry, copy)->asCharStar();
    }
    const std::size_t size = std::strlen(text) + 1;
    std::unique_ptr<char[]> copy(hblNewChars(HBL_HERE, size));
    std::memcpy(copy.get(), text, size);
    return givenTo(registry, copy, MRLObjectRegistryI::eRSDeleteArray);
}

MRLBase64Binary* copyBase64(const MRLBase64Binary* other, MRLObjectRegistryI& registry) {
    if (other == nullptr)
        return nullptr;
    std::unique_ptr<MRLBase64Binary> copy(hblNew<MRLBase64Binary>(HBL_HERE));
    if (other->streamable() != nullptr)
        copy->reference(*other->streamable());
    else if (other->pcount() != 0)
        copy->append(other->str(), other->pcount());
    copy->setIsContentId(other->getIsContentId());
    return givenTo(registry, copy);
}

MRLSchemaTypeI* copyDeclared(const MRLSchemaTypeI& other, ObjectType declared, const char* className,
                             MRLObjectRegistryI& registry) {
    MRLSchemaTypeI& copy = MRLSchemaTypesFactory::getInstance().createCopy(other, registry);
    if (copy.isa(declared) == 0)
        hblAssertFailed(std::string("HBL_ASSERT(copy.isa(MRLSchemaTypeI::e") + className + "));", HBL_HERE,
                        __func__);
    return &copy;
}

bool equalText(const char* a, const char* b) {
    if (a == nullptr || b == nullptr)
        return a == b;
    return std::strcmp(a, b) == 0;
}

bool equalBase64(const MRLBase64Binary* a, const MRLBase64Binary* b) {
    if (a == nullptr || b == nullptr)
        return a == b;
    return (*a != *b) == 0;
}

void adopt(MRLObjectRegistryI& registry, std::unique_ptr<MRLSchemaTypeI> object) {
    givenTo(registry, object);
}

MRLBase64Binary* lazyBase64(MRLBase64Binary*& field, MRLObjectRegistryI* registry) {
    if (registry != nullptr && field == nullptr) {
        std::unique_ptr<MRLBase64Binary> binary(hblNew<MRLBase64Binary>(HBL_HERE));
        field = givenTo(*registry, binary);
    }
    return field;
}

void appendNames(std::vector<const char*>& names, std::initializer_list<std::uint32_t> keys) {
    for (const std::uint32_t key : keys)
        names.push_back(nameOf(key));
}

} // namespace mrl::detail
