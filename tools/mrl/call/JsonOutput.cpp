#include "call/JsonOutput.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLPortTypeI.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "call/SchemaNames.h"
#include "lookup/Catalogue.h"

#include "HBLCore/HBLBase64.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace mrl::tool {

namespace {

using ObjectType = MRLSchemaTypeI::ObjectType;

constexpr std::size_t pieceSize = 4096;

/// The shortest text that means the same number: 0.1, where the widened number would be longer.
Json shortest(double number) {
    std::array<char, 64> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), static_cast<float>(number));
    double result = number;
    std::from_chars(text.data(), end.ptr, result);
    return result;
}

/// Whether a reader can tell the value of a property from the property: a class has no such members.
bool mayStandAlone(const Json& value) {
    return !value.is_object() || value.contains("@cid") || value.contains("@file");
}

Json binary(const MRLBase64Binary& value) {
    const std::string_view bytes(value.str() == nullptr ? "" : value.str(), value.pcount());
    if (value.getIsContentId() != 0)
        return Json{{"@cid", std::string(bytes)}};
    return HBLBase64Encoded(bytes);
}

} // namespace

Json JsonOutput::parameters(MRLMessageI& message) {
    std::vector<const char*> names;
    message.getParameterNames(names);
    const MessageRow* row = findMessage(message.getGeneratedMessageName());
    Json result = Json::object();
    for (const char* name : names) {
        const void* given = message.getParameter(name, 0);
        if (given == nullptr)
            continue;
        // The message tells the class of the value; what it was declared as stands in the catalogue.
        const auto parameter = std::ranges::find(row->parameters, std::string_view(name), &MemberRow::name);
        const ObjectType actual = message.getParameterType(name);
        const ObjectType declared =
            MRLSchemaTypesFactory::isGeneratedType(actual) != 0
                ? MRLSchemaTypesFactory::getInstance().stringToObjectType(parameter->type)
                : actual;
        result[name] = value(declared, given, name);
    }
    return result;
}

Json JsonOutput::value(ObjectType declared, const void* value, const std::string& path) {
    if (MRLSchemaTypesFactory::isString(declared) != 0)
        return text(static_cast<const char*>(value), path);
    switch (declared) {
    case MRLSchemaTypeI::eBoolean: return *static_cast<const int*>(value) != 0;
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger: return *static_cast<const int*>(value);
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eFloat: return shortest(*static_cast<const double*>(value));
    case MRLSchemaTypeI::eBase64Binary: {
        const auto& bytes = *static_cast<const MRLBase64Binary*>(value);
        return bytes.streamable() == nullptr ? binary(bytes)
                                             : m_keeper.keep(*bytes.streamable(), path, false);
    }
    default: break;
    }
    auto& object = *static_cast<MRLSchemaTypeI*>(const_cast<void*>(value));
    return MRLSchemaTypesFactory::getInstance().isArrayType(object.getObjectType()) != 0
               ? array(object, path)
               : this->object(object, declared, path);
}

Json JsonOutput::text(const char* text, const std::string& path) {
    if (!MRL_CharStreamable::isCharStreamable(text))
        return text;
    const MRL_CharStreamable large(text);
    if (large.getStreamable() != nullptr)
        return m_keeper.keep(*large.getStreamable(), path, true);
    PLQMemoryOutputStream out(pieceSize, pieceSize);
    large >> out;
    std::string content(out.bytes(), static_cast<std::size_t>(out.length()));
    return large.getIsContentId() != 0 ? Json{{"@cid", content}} : Json(content);
}

Json JsonOutput::object(MRLSchemaTypeI& object, ObjectType declared, const std::string& path) {
    const ObjectType actual = object.getObjectType();
    const TypeRow* row = rowOf(actual);
    if (row == nullptr) // of a type that the schema does not have
        return Json{{"@type", object.getGeneratedObjectName()}};
    Json result = Json::object();
    if (actual != declared)
        result["@type"] = row->name;
    if (isTextType(*row)) {
        const auto* content = static_cast<const char*>(object.getChildObject("", 0));
        Json plain = content == nullptr ? Json() : text(content, path);
        if (actual == declared)
            return plain;
        result["@text"] = std::move(plain);
        return result;
    }
    members(object, path, result);
    const auto value = result.find("value");
    if (isProperty(*row) && result.size() == 1 && value != result.end() && mayStandAlone(*value))
        return *value;
    return result;
}

void JsonOutput::members(MRLSchemaTypeI& object, const std::string& path, Json& to) {
    std::vector<const char*> names;
    object.getChildObjectNames(names, true);
    for (const char* name : names) {
        const void* child = object.getChildObject(name, 0);
        if (child == nullptr)
            continue;
        const ObjectType declared = object.getChildType(name);
        const auto* elements = MRLSchemaTypesFactory::getInstance().isArrayType(declared) != 0
                                   ? static_cast<const MRLSchemaTypeI*>(child)
                                   : nullptr;
        if (elements != nullptr && static_cast<const MRLSchemaTypeArrayI*>(elements)->size() == 0)
            continue; // embedded arrays are always there
        to[name] = value(declared, child, memberPath(path, name));
    }
}

Json JsonOutput::array(MRLSchemaTypeI& array, const std::string& path) {
    const ObjectType element = array.getChildType("0");
    const std::size_t size = static_cast<const MRLSchemaTypeArrayI&>(array).size();
    Json result = Json::array();
    for (std::size_t i = 0; i < size; ++i) {
        const void* child = array.getChildObject(std::to_string(i).c_str(), 0);
        result.push_back(child == nullptr ? Json() : value(element, child, elementPath(path, i)));
    }
    return result;
}

} // namespace mrl::tool
