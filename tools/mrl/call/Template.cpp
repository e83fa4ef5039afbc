#include "call/Template.h"

#include "call/SchemaNames.h"
#include "lookup/Catalogue.h"

#include <string>

namespace mrl::tool {

namespace {

Json primitive(std::string_view type) {
    if (type == "boolean")
        return true;
    if (type == "int" || type == "integer" || type == "nonNegativeInteger" || type == "positiveInteger")
        return 1;
    if (type == "decimal" || type == "float")
        return 0.5;
    if (type == "base64Binary")
        return "Qnl0ZXM=";
    return type;
}

Json example(std::string_view type, int depth);

Json members(const TypeRow& type, int depth) {
    Json result = Json::object();
    for (const MemberRow* member : allMembers(type))
        if (Json value = example(member->type, depth); !value.is_null())
            result[member->name] = std::move(value);
    return result;
}

/// Null when it lies too deep.
Json example(std::string_view type, int depth) {
    const TypeRow* declared = findType(type);
    if (declared == nullptr || !declared->travels)
        return primitive(type);
    if (declared->kind == TypeKind::array) {
        Json element = example(declared->element, depth);
        return element.is_null() ? Json() : Json::array({std::move(element)});
    }
    const TypeRow& made = declared->isAbstract ? *concreteTypes(*declared).front() : *declared;
    Json result = Json::object();
    if (&made != declared)
        result["@type"] = made.name;
    if (isTextType(made)) {
        Json text = made.kind == TypeKind::enumeration ? made.values.front() : made.name;
        if (&made == declared)
            return text;
        result["@text"] = std::move(text);
        return result;
    }
    if (isProperty(made) && &made == declared) {
        Json value = example(findMember(made, "value")->type, depth);
        return value.is_object() ? Json{{"value", std::move(value)}} : value;
    }
    if (depth == 0)
        return {};
    result.update(members(made, depth - 1));
    return result;
}

} // namespace

Json requestTemplate(const MessageRow& request, int depth) {
    Json result = Json::object();
    for (const MemberRow& parameter : request.parameters)
        if (Json value = example(parameter.type, depth); !value.is_null())
            result[parameter.name] = std::move(value);
    return result;
}

} // namespace mrl::tool
