#pragma once

#include "store/StoreObject.h"

#include <string>

class MRLObjectRegistryI;
class MRLSchemaTypeI;

namespace mrl::bus {

/// Turns objects of the store into schema objects and back, by the names of their classes and
/// properties. A property that the schema class does not have is left out.
class ObjectMapper {
public:
    /// What is made belongs to `registry`.
    /// @param schemaInfo tell with each property whether a client may set and search it.
    ObjectMapper(MRLObjectRegistryI& registry, bool schemaInfo)
        : m_registry(registry)
        , m_schemaInfo(schemaInfo) {}

    /// An object of the schema class that has the store's class name, with the properties of `object`.
    /// @throws StoreError badClass when the schema has no such class.
    MRLSchemaTypeI* toSchema(const StoreObject& object);

    /// The class and the present properties of a schema object; a property without a value is there
    /// with no value.
    /// @throws StoreError badProperty for a value of a kind that the store does not keep.
    static StoreObject fromSchema(MRLSchemaTypeI& object);

private:
    void addProperty(MRLSchemaTypeI& to, const std::string& name, const PropertyValue& value);
    bool setValue(MRLSchemaTypeI& property, const PropertyValue& value);
    bool setElements(MRLSchemaTypeI& array, const PropertyValue& value);
    MRLSchemaTypeI* localText(std::int32_t type, const LocalText& text);
    MRLSchemaTypeI* reference(std::int32_t type, const StoreObject& object);

    MRLObjectRegistryI& m_registry;
    bool m_schemaInfo;
};

} // namespace mrl::bus
