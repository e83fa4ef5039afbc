#include "soap/ObjectMapper.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBaseClass.h"
#include "Toolkit/MRLBaseProp.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "soap/SchemaAccess.h"
#include "store/PropertyRules.h"
#include "store/StoreError.h"

#include <algorithm>
#include <memory>
#include <vector>

namespace mrl::bus {

namespace {

using ObjectType = MRLSchemaTypeI::ObjectType;

constexpr const char* element = "item"; // the name says nothing in an array: it appends

[[noreturn]] void refuse(StoreErrorCode code, const std::string& message) {
    throw StoreError(code, message);
}

/// "bus:report" without its prefix.
std::string className(const MRLSchemaTypeI& object) {
    const std::string name = MRLSchemaTypesFactory::getInstance().objectTypeToXSIType(object.getObjectType());
    return name.substr(name.find(':') + 1);
}

bool knows(const MRLSchemaTypeI& object, const char* member) {
    return object.getChildType(member) != MRLSchemaTypeI::e_Unknown;
}

/// The value of an array-valued property, told by what its elements are.
PropertyValue fromArray(const std::string& property, MRLSchemaTypeArrayI& array) {
    const ObjectType type = array.getChildType("0");
    if (MRLSchemaTypesFactory::isString(type) != 0)
        return SchemaAccess::texts(&array);
    const auto elements = SchemaAccess::elements(&array);
    if (elements.empty())
        return {};
    std::vector<LocalText> localTexts;
    References references;
    std::vector<std::string> texts;
    for (auto* item : elements) {
        if (item->isa(MRLBaseClass::s_objectType) != 0) {
            const auto path = SchemaAccess::text(SchemaAccess::object(item, "searchPath"), "value");
            references.push_back({className(*item), {{"searchPath", path.value_or("")}}});
        } else if (knows(*item, "locale") && knows(*item, "value")) {
            localTexts.push_back({SchemaAccess::text(item, "locale").value_or(""),
                                  SchemaAccess::text(item, "value").value_or("")});
        } else if (auto text = SchemaAccess::text(item)) {
            texts.push_back(std::move(*text));
        } else {
            refuse(StoreErrorCode::badProperty, "The property " + property + " holds objects of the class " +
                                                    className(*item) +
                                                    ", which the store does not keep; leave it out.");
        }
    }
    if (!references.empty())
        return references;
    if (!localTexts.empty())
        return localTexts;
    return texts;
}

PropertyValue fromProperty(const std::string& name, MRLSchemaTypeI& property) {
    const ObjectType type = property.getChildType("value");
    void* value = property.getChildObject("value", 0);
    if (value == nullptr)
        return {};
    if (type == MRLSchemaTypeI::eBoolean)
        return *static_cast<int*>(value) != 0;
    if (SchemaAccess::isWholeNumber(type))
        return static_cast<std::int64_t>(*static_cast<int*>(value));
    if (SchemaAccess::isDecimal(type))
        return *static_cast<double*>(value);
    if (MRLSchemaTypesFactory::isBase64(type) != 0)
        return Binary{SchemaAccess::bytes(*static_cast<MRLBase64Binary*>(value))};
    if (auto* array = SchemaAccess::asArray(SchemaAccess::object(&property, "value")))
        return fromArray(name, *array);
    if (auto text = SchemaAccess::text(&property, "value"))
        return std::move(*text);
    refuse(StoreErrorCode::badProperty, "The property " + name +
                                            " holds a structure, which the store does not keep; "
                                            "leave it out.");
}

} // namespace

StoreObject ObjectMapper::fromSchema(MRLSchemaTypeI& object) {
    StoreObject result{className(object), {}};
    std::vector<const char*> names;
    object.getChildObjectNames(names, true);
    for (const char* name : names)
        if (auto* property = SchemaAccess::object(&object, name);
            property != nullptr && property->isa(MRLBaseProp::s_objectType) != 0)
            result.properties[name] = fromProperty(name, *property);
    return result;
}

MRLSchemaTypeI* ObjectMapper::toSchema(const StoreObject& object) {
    const ObjectType type =
        MRLSchemaTypesFactory::getInstance().stringToObjectType(object.objectClass.c_str());
    if (type == MRLSchemaTypeI::e_Unknown)
        refuse(StoreErrorCode::badClass, "The store holds an object of the class '" + object.objectClass +
                                             "', which the schema does not have.");
    MRLSchemaTypeI* result = SchemaAccess::create(type, m_registry);
    for (const auto& [name, value] : object.properties)
        addProperty(*result, name, value);
    return result;
}

void ObjectMapper::addProperty(MRLSchemaTypeI& to, const std::string& name, const PropertyValue& value) {
    const ObjectType type = to.getChildType(name.c_str());
    if (type == MRLSchemaTypeI::e_Unknown)
        return;
    MRLSchemaTypeI* property = SchemaAccess::create(type, m_registry);
    if (!setValue(*property, value))
        return;
    if (m_schemaInfo) {
        const auto infoType = property->getChildType("schemaInfo");
        MRLSchemaTypeI* info = SchemaAccess::create(infoType, m_registry);
        const auto* rule = findPropertyRule(name);
        SchemaAccess::setNumber(*info, "modifiable", rule == nullptr || rule->writable);
        SchemaAccess::setNumber(*info, "searchable", rule == nullptr || !rule->column.empty());
        property->setChildObject("schemaInfo", info, infoType, nullptr);
    }
    to.setChildObject(name.c_str(), property, type, nullptr);
}

/// Sets a property's value when the kind that the store holds fits the schema's.
bool ObjectMapper::setValue(MRLSchemaTypeI& property, const PropertyValue& value) {
    if (const auto* text = std::get_if<std::string>(&value))
        return SchemaAccess::setText(property, "value", *text, m_registry);
    if (const auto* number = std::get_if<std::int64_t>(&value))
        return SchemaAccess::setNumber(property, "value", *number);
    if (const auto* truth = std::get_if<bool>(&value))
        return SchemaAccess::setNumber(property, "value", *truth ? 1 : 0);
    if (const auto* decimal = std::get_if<double>(&value))
        return SchemaAccess::setDecimal(property, "value", *decimal);
    if (const auto* binary = std::get_if<Binary>(&value))
        return setBinary(property, *binary);
    MRLSchemaTypeI* array = SchemaAccess::object(&property, "value");
    return array != nullptr && SchemaAccess::asArray(array) != nullptr && setElements(*array, value);
}

bool ObjectMapper::setBinary(MRLSchemaTypeI& property, const Binary& value) {
    if (MRLSchemaTypesFactory::isBase64(property.getChildType("value")) == 0)
        return false;
    std::string bytes = value.bytes.substr(std::min(m_skippedBytes, value.bytes.size()), m_mostBytes);
    auto made = std::make_unique<MRLBase64Binary>();
    if (m_dataForm != DataForm::base64) {
        bytes = m_attachments->add("application/octet-stream", std::move(bytes), m_dataForm);
        made->setIsContentId(1);
    }
    if (!bytes.empty())
        made->append(bytes.data(), bytes.size());
    m_registry.registerPointer(made.get());
    property.setChildObject("value", made.release(), MRLSchemaTypeI::eBase64Binary, nullptr);
    return true;
}

void ObjectMapper::setDataRange(std::int64_t skipped, std::optional<std::int64_t> most) {
    if (skipped < 0 || most.value_or(0) < 0)
        refuse(StoreErrorCode::badOption, "A number of data bytes is negative; give 0 or more.");
    m_skippedBytes = static_cast<std::size_t>(skipped);
    if (most)
        m_mostBytes = static_cast<std::size_t>(*most);
}

bool ObjectMapper::setElements(MRLSchemaTypeI& array, const PropertyValue& value) {
    const ObjectType type = array.getChildType(element);
    if (const auto* texts = std::get_if<std::vector<std::string>>(&value)) {
        for (const auto& text : *texts)
            if (!SchemaAccess::setText(array, element, text, m_registry))
                return false;
    } else if (const auto* localTexts = std::get_if<std::vector<LocalText>>(&value)) {
        for (const auto& text : *localTexts)
            array.setChildObject(element, localText(type, text), type, nullptr);
    } else if (const auto* references = std::get_if<References>(&value)) {
        for (const auto& object : *references) {
            MRLSchemaTypeI* item = reference(type, object);
            array.setChildObject(element, item, item->getObjectType(), nullptr);
        }
    }
    return true;
}

MRLSchemaTypeI* ObjectMapper::localText(std::int32_t type, const LocalText& text) {
    MRLSchemaTypeI* item = SchemaAccess::create(static_cast<ObjectType>(type), m_registry);
    SchemaAccess::setText(*item, "locale", text.locale, m_registry);
    SchemaAccess::setText(*item, "value", text.text, m_registry);
    return item;
}

MRLSchemaTypeI* ObjectMapper::reference(std::int32_t type, const StoreObject& object) {
    if (type == MRLBaseClass::s_objectType)
        return toSchema(object);
    // An ancestor is told by a few texts and not by properties.
    MRLSchemaTypeI* item = SchemaAccess::create(static_cast<ObjectType>(type), m_registry);
    for (const auto& [name, value] : object.properties)
        if (const auto* text = std::get_if<std::string>(&value))
            SchemaAccess::setText(*item, name == "defaultName" ? "title" : name.c_str(), *text, m_registry);
    return item;
}

} // namespace mrl::bus
