#include "soap/SchemaAccess.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_Streamable.h"
#include "Toolkit/MRL_String.h"

#include "PLQStreams/PLQMemoryOutputStream.h"

#include <limits>
#include <memory>

namespace mrl::bus {

namespace {

constexpr std::size_t pieceSize = 65536;

std::optional<std::string> plainText(const void* child) {
    const auto* text = static_cast<const char*>(child);
    if (text == nullptr)
        return std::nullopt;
    if (!MRL_CharStreamable::isCharStreamable(text))
        return text;
    PLQMemoryOutputStream out(pieceSize, pieceSize); // it came as an attachment
    MRL_CharStreamable(text) >> out;
    return std::string(out.bytes(), out.length());
}

MRL_String* newText(std::string_view text, MRLObjectRegistryI& registry) {
    auto made = std::make_unique<MRL_String>();
    made->appendChars(text.data(), text.size());
    registry.registerPointer(made.get());
    return made.release();
}

} // namespace

std::string SchemaAccess::bytes(const MRLBase64Binary& value) {
    if (value.streamable() == nullptr)
        return value.str() == nullptr ? std::string() : std::string(value.str(), value.pcount());
    PLQMemoryOutputStream out(pieceSize, pieceSize);
    *value.streamable() >> out;
    return {out.bytes(), out.length()};
}

bool SchemaAccess::isWholeNumber(ObjectType type) {
    return type == MRLSchemaTypeI::eInt || type == MRLSchemaTypeI::eInteger ||
           type == MRLSchemaTypeI::eBoolean;
}

bool SchemaAccess::isDecimal(ObjectType type) {
    return type == MRLSchemaTypeI::eDecimal || type == MRLSchemaTypeI::eFloat;
}

bool SchemaAccess::isText(const MRLSchemaTypeI& object) {
    std::vector<const char*> names;
    object.getChildObjectNames(names, true);
    return names.size() == 1 && *names.front() == '\0';
}

std::optional<std::string> SchemaAccess::text(MRLSchemaTypeI* object) {
    if (object == nullptr || !isText(*object))
        return std::nullopt;
    return plainText(object->getChildObject("", 0));
}

std::optional<std::string> SchemaAccess::text(MRLSchemaTypeI* object, const char* member) {
    if (object == nullptr)
        return std::nullopt;
    const ObjectType type = object->getChildType(member);
    if (MRLSchemaTypesFactory::isString(type) != 0)
        return plainText(object->getChildObject(member, 0));
    return text(SchemaAccess::object(object, member));
}

std::optional<std::int64_t> SchemaAccess::number(MRLSchemaTypeI* object, const char* member) {
    if (object == nullptr || !isWholeNumber(object->getChildType(member)))
        return std::nullopt;
    const auto* value = static_cast<const int*>(object->getChildObject(member, 0));
    return value == nullptr ? std::nullopt : std::optional<std::int64_t>(*value);
}

MRLSchemaTypeI* SchemaAccess::object(MRLSchemaTypeI* object, const char* member) {
    if (object == nullptr)
        return nullptr;
    const ObjectType type = object->getChildType(member);
    if (type == MRLSchemaTypeI::e_Unknown || MRLSchemaTypesFactory::isGeneratedType(type) == 0)
        return nullptr;
    return static_cast<MRLSchemaTypeI*>(object->getChildObject(member, 0));
}

MRLSchemaTypeArrayI* SchemaAccess::asArray(MRLSchemaTypeI* object) {
    return dynamic_cast<MRLSchemaTypeArrayI*>(object);
}

std::vector<std::string> SchemaAccess::texts(MRLSchemaTypeI* object, const char* member) {
    return texts(asArray(SchemaAccess::object(object, member)));
}

std::vector<std::string> SchemaAccess::texts(MRLSchemaTypeArrayI* array) {
    std::vector<std::string> result;
    for (std::size_t i = 0; array != nullptr && i < array->size(); ++i)
        if (auto element = text(array, std::to_string(i).c_str()); element && !element->empty())
            result.push_back(std::move(*element));
    return result;
}

std::vector<MRLSchemaTypeI*> SchemaAccess::elements(MRLSchemaTypeArrayI* array) {
    std::vector<MRLSchemaTypeI*> result;
    for (std::size_t i = 0; array != nullptr && i < array->size(); ++i)
        if (auto* element = object(array, std::to_string(i).c_str()))
            result.push_back(element);
    return result;
}

MRLSchemaTypeI* SchemaAccess::create(ObjectType type, MRLObjectRegistryI& registry) {
    std::unique_ptr<MRLSchemaTypeI> made(MRLSchemaTypesFactory::getInstance().create(type));
    registry.registerPointer(made.get());
    return made.release();
}

bool SchemaAccess::setText(MRLSchemaTypeI& object, const char* member, std::string_view text,
                           MRLObjectRegistryI& registry) {
    const ObjectType type = object.getChildType(member);
    if (MRLSchemaTypesFactory::isString(type) != 0) {
        object.setChildObject(member, newText(text, registry), MRLSchemaTypeI::eString, nullptr);
        return true;
    }
    if (type == MRLSchemaTypeI::e_Unknown || MRLSchemaTypesFactory::isGeneratedType(type) == 0 ||
        MRLSchemaTypesFactory::getInstance().isArrayType(type) != 0)
        return false;
    MRLSchemaTypeI* value = create(type, registry);
    if (!isText(*value))
        return false;
    value->setChildObject("", newText(text, registry), MRLSchemaTypeI::eString, nullptr);
    object.setChildObject(member, value, type, nullptr);
    return true;
}

bool SchemaAccess::setNumber(MRLSchemaTypeI& object, const char* member, std::int64_t number) {
    const ObjectType type = object.getChildType(member);
    if (!isWholeNumber(type) || number < std::numeric_limits<int>::min() ||
        number > std::numeric_limits<int>::max())
        return false;
    auto value = static_cast<int>(number);
    object.setChildObject(member, &value, type, nullptr);
    return true;
}

bool SchemaAccess::setDecimal(MRLSchemaTypeI& object, const char* member, double number) {
    const ObjectType type = object.getChildType(member);
    if (!isDecimal(type))
        return false;
    auto value = static_cast<float>(number);
    object.setChildObject(member, &value, type, nullptr);
    return true;
}

} // namespace mrl::bus
