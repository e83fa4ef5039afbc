#include "call/ValueBuilder.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLMessageFactory.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_String.h"
#include "call/SchemaNames.h"
#include "lookup/Catalogue.h"
#include "lookup/Nearest.h"

#include "HBLCore/HBLBase64.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <memory>
#include <string_view>

namespace mrl::tool {

namespace {

using ObjectType = MRLSchemaTypeI::ObjectType;

constexpr const char* typeMark = "@type";
constexpr const char* textMark = "@text";
constexpr const char* cidMark = "@cid";

MRLSchemaTypesFactory& factory() {
    return MRLSchemaTypesFactory::getInstance();
}

template <class T>
T* adopt(std::unique_ptr<T> made, MRLObjectRegistryI& registry) {
    registry.registerPointer(made.get());
    return made.release();
}

[[noreturn]] void expected(const std::string& path, const std::string& what, const Json& given) {
    throw JsonError(path, "expected " + what + ", not " + kindOf(given));
}

const std::string& requireText(const Json& json, const std::string& path, const std::string& what) {
    if (!json.is_string())
        expected(path, what, json);
    const auto& text = json.get_ref<const std::string&>();
    const auto bad = std::ranges::find_if(text, [](char c) {
        const auto byte = static_cast<unsigned char>(c);
        return byte < 0x20 && byte != '\t' && byte != '\n' && byte != '\r';
    });
    if (bad != text.end())
        throw JsonError(path, "holds the control character " + std::to_string(static_cast<int>(*bad)) +
                                  ", which no envelope can carry");
    return text;
}

int requireWhole(const Json& json, const char* schemaType, const std::string& path) {
    const std::string_view type = schemaType;
    const std::int64_t lowest = type == "positiveInteger"      ? 1
                                : type == "nonNegativeInteger" ? 0
                                                               : std::numeric_limits<std::int32_t>::min();
    constexpr std::int64_t highest = std::numeric_limits<std::int32_t>::max();
    const bool fits = json.is_number_unsigned()  ? json.get<std::uint64_t>() <= highest
                      : json.is_number_integer() ? true
                                                 : false;
    if (!fits || json.get<std::int64_t>() < lowest || json.get<std::int64_t>() > highest)
        expected(path, "a whole number from " + std::to_string(lowest) + " to " + std::to_string(highest),
                 json);
    return json.get<int>();
}

float requireDecimal(const Json& json, const std::string& path) {
    constexpr double highest = std::numeric_limits<float>::max();
    if (!json.is_number() || !(std::abs(json.get<double>()) <= highest))
        expected(path, "a number of at most 3.4e38", json);
    return json.get<float>();
}

std::vector<std::string_view> namesOf(const std::vector<const TypeRow*>& types) {
    std::vector<std::string_view> names;
    names.reserve(types.size());
    for (const TypeRow* type : types)
        names.emplace_back(type->name);
    return names;
}

std::string someOf(const std::vector<std::string_view>& names) {
    constexpr std::size_t count = 5;
    std::string text;
    for (std::size_t i = 0; i < std::min(count, names.size()); ++i)
        text.append(i == 0 ? "" : ", ").append(names[i]);
    return names.size() > count ? text + ", ..." : text;
}

/// The row of the class that `json` asks for: the declared one, or what "@type" names.
const TypeRow& chosenType(const TypeRow& declared, const Json& json, const std::string& path) {
    const bool names = json.is_object() && json.contains(typeMark);
    if (!names && !declared.isAbstract)
        return declared;
    const std::vector<const TypeRow*> possible = concreteTypes(declared);
    const std::string place = memberPath(path, typeMark);
    if (!names)
        throw JsonError(place, std::string("is missing: ") + declared.name + " is abstract, name one of " +
                                   someOf(namesOf(possible)));
    const std::string& wanted = requireText(json.at(typeMark), place, "the name of a class");
    const TypeRow* found = findType(wanted);
    if (found == nullptr || std::ranges::find(possible, found) == possible.end())
        throw JsonError(place, "'" + wanted + "' is no " + declared.name + " that can be made" +
                                   proposal(wanted, namesOf(possible)));
    return *found;
}

bool isMark(const std::string& member) {
    return member == typeMark || member == textMark;
}

void refuseUnknown(const std::string& what, const std::string& owner, const std::string& name,
                   const std::string& path, const std::vector<std::string_view>& known) {
    throw JsonError(path, "there is no " + what + " '" + name + "' in " + owner + proposal(name, known));
}

} // namespace

void ValueBuilder::setParameters(MRLMessageI& message, const Json& json) {
    if (!json.is_object())
        expected("", "an object with the parameters", json);
    const MessageRow* row = findMessage(message.getGeneratedMessageName());
    std::vector<std::string_view> known;
    for (const MemberRow& parameter : row->parameters)
        known.emplace_back(parameter.name);
    for (const auto& [name, value] : json.items()) {
        const auto parameter = std::ranges::find(row->parameters, name, &MemberRow::name);
        if (parameter == row->parameters.end())
            refuseUnknown("parameter", row->name, name, name, known);
        build(message.getParameterType(parameter->name), parameter->type, value, name,
              [&](void* built, ObjectType type) { message.setParameter(parameter->name, built, type); });
    }
}

void ValueBuilder::build(ObjectType declared, const char* schemaType, const Json& json,
                         const std::string& path, const Store& store) {
    if (json.is_null())
        return;
    if (MRLSchemaTypesFactory::isString(declared) != 0)
        return buildText(declared, json, path, store);
    switch (declared) {
    case MRLSchemaTypeI::eBoolean: {
        if (!json.is_boolean())
            expected(path, "true or false", json);
        int value = json.get<bool>() ? 1 : 0;
        return store(&value, declared);
    }
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger: {
        int value = requireWhole(json, schemaType, path);
        return store(&value, declared);
    }
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eFloat: {
        float value = requireDecimal(json, path);
        return store(&value, declared);
    }
    case MRLSchemaTypeI::eBase64Binary: return buildBinary(json, path, store);
    default: break;
    }
    MRLSchemaTypeI* object = nullptr;
    if (factory().isArrayType(declared) != 0) {
        object = create(declared);
        fill(*object, json, path);
    } else {
        object = makeObject(declared, json, path);
    }
    store(object, object->getObjectType());
}

void ValueBuilder::buildText(ObjectType declared, const Json& json, const std::string& path,
                             const Store& store) {
    if (!json.is_object())
        return store(newText(requireText(json, path, "a text")), declared);
    // The id stands in for the text until the attachment is there.
    const auto* id = static_cast<MRL_String*>(newText(contentId(json, path)));
    auto* reference = adopt(std::make_unique<MRL_CharStreamable>(), m_registry);
    reference->initialize(id->str(), 0);
    reference->setIsContentId(1);
    store(const_cast<char*>(reference->asCharStar()), MRLSchemaTypeI::eCharStreamable);
}

void ValueBuilder::buildBinary(const Json& json, const std::string& path, const Store& store) {
    auto* binary = adopt(std::make_unique<MRLBase64Binary>(), m_registry);
    if (json.is_object()) {
        const std::string id = contentId(json, path);
        binary->append(id.data(), id.size());
        binary->setIsContentId(1);
    } else {
        const std::string& text = requireText(json, path, "Base64 text");
        std::string bytes(text.size() / 4 * 3 + 3, '\0');
        std::size_t size = 0;
        if (HBLBase64Decode(text.c_str(), bytes.data(), &size) != 0)
            throw JsonError(path, "expected Base64 text: the alphabet, and groups of four with padding");
        if (size != 0)
            binary->append(bytes.data(), size);
    }
    store(binary, MRLSchemaTypeI::eBase64Binary);
}

std::string ValueBuilder::contentId(const Json& json, const std::string& path) {
    if (json.size() != 1 || !json.contains(cidMark))
        expected(path, std::string(R"(a text, or {")") + cidMark + R"(": ID} for an attachment)", json);
    const std::string place = memberPath(path, cidMark);
    std::string id = requireText(json.at(cidMark), place, "the id of an attachment");
    const bool plain = std::ranges::all_of(id, [](char c) { return c > ' ' && c < 0x7f; });
    if (id.empty() || !plain || id.find_first_of("<>\"&") != std::string::npos)
        throw JsonError(place, "expected an id of printable ASCII without < > \" &");
    m_contentIds.push_back(id);
    return id;
}

MRLSchemaTypeI* ValueBuilder::makeObject(ObjectType declared, const Json& json, const std::string& path) {
    const TypeRow& row = chosenType(*rowOf(declared), json, path);
    MRLSchemaTypeI* object = create(factory().stringToObjectType(row.name));
    if (isTextType(row))
        setText(*object, row, json, path);
    else if (json.is_object() && !(isProperty(row) && json.contains(cidMark)))
        setMembers(*object, json, path);
    else if (isProperty(row))
        setMember(*object, "value", json, path); // the value alone
    else
        expected(path, std::string("an object of the class ") + row.name, json);
    return object;
}

void ValueBuilder::setText(MRLSchemaTypeI& object, const TypeRow& row, const Json& json,
                           const std::string& path) {
    const bool marked = json.is_object() && json.contains(textMark);
    const std::string place = marked ? memberPath(path, textMark) : path;
    const std::string& text =
        requireText(marked ? json.at(textMark) : json, place, std::string("a text, the ") + row.name);
    if (row.kind == TypeKind::enumeration) {
        const std::vector<std::string_view> values(row.values.begin(), row.values.end());
        if (std::ranges::find(values, text) == values.end()) {
            const std::string near = proposal(text, values);
            throw JsonError(place, "'" + text + "' is no value of " + row.name +
                                       (near.empty() ? "; it has " + someOf(values) : near));
        }
    }
    object.setChildObject("", newText(text), MRLSchemaTypeI::eString, nullptr);
}

void ValueBuilder::setMembers(MRLSchemaTypeI& object, const Json& json, const std::string& path) {
    for (const auto& [name, value] : json.items()) {
        if (isMark(name))
            continue;
        if (object.getChildType(name.c_str()) == MRLSchemaTypeI::e_Unknown) {
            std::vector<const char*> names;
            object.getChildObjectNames(names, true);
            refuseUnknown("member", schemaName(object.getObjectType()), name, memberPath(path, name),
                          {names.begin(), names.end()});
        }
        setMember(object, name.c_str(), value, memberPath(path, name));
    }
}

void ValueBuilder::setMember(MRLSchemaTypeI& object, const char* member, const Json& json,
                             const std::string& path) {
    const ObjectType declared = object.getChildType(member);
    if (factory().isArrayType(declared) != 0) { // embedded in its object, to be filled in place
        if (!json.is_null())
            fill(*static_cast<MRLSchemaTypeI*>(object.getChildObject(member, 1)), json, path);
        return;
    }
    const MemberRow* row = findMember(*rowOf(object.getObjectType()), member);
    build(declared, row == nullptr ? "" : row->type, json, path,
          [&](void* built, ObjectType type) { object.setChildObject(member, built, type, nullptr); });
}

void ValueBuilder::fill(MRLSchemaTypeI& array, const Json& json, const std::string& path) {
    const TypeRow& row = *rowOf(array.getObjectType());
    if (!json.is_array())
        expected(path, std::string("an array of ") + row.element, json);
    const ObjectType element = array.getChildType("0");
    for (std::size_t i = 0; i < json.size(); ++i) {
        if (json[i].is_null())
            expected(elementPath(path, i), std::string("an element, ") + row.element, json[i]);
        build(element, row.element, json[i], elementPath(path, i),
              [&](void* built, ObjectType type) { array.setChildObject("item", built, type, nullptr); });
    }
}

MRLSchemaTypeI* ValueBuilder::create(ObjectType type) {
    return adopt(std::unique_ptr<MRLSchemaTypeI>(factory().create(type)), m_registry);
}

void* ValueBuilder::newText(const std::string& text) {
    auto* made = adopt(std::make_unique<MRL_String>(), m_registry);
    made->appendChars(text.data(), text.size());
    return made;
}

} // namespace mrl::tool
