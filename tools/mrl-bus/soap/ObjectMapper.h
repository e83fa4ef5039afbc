#pragma once

#include "soap/Call.h"
#include "store/StoreObject.h"

#include <cstdint>
#include <optional>
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

    /// How binary data go out; in Base64 without it.
    /// @param attachments borrowed
    void setDataForm(DataForm form, OutgoingAttachments& attachments) {
        m_dataForm = form;
        m_attachments = &attachments;
    }

    /// Which bytes of binary data go out; all of them without it.
    /// @throws StoreError badOption for a negative number.
    void setDataRange(std::int64_t skipped, std::optional<std::int64_t> most);

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
    bool setBinary(MRLSchemaTypeI& property, const Binary& value);
    bool setElements(MRLSchemaTypeI& array, const PropertyValue& value);
    MRLSchemaTypeI* localText(std::int32_t type, const LocalText& text);
    MRLSchemaTypeI* reference(std::int32_t type, const StoreObject& object);

    MRLObjectRegistryI& m_registry;
    bool m_schemaInfo;
    DataForm m_dataForm = DataForm::base64;
    OutgoingAttachments* m_attachments = nullptr; // borrowed
    std::size_t m_skippedBytes = 0;
    std::size_t m_mostBytes = std::string::npos;
};

} // namespace mrl::bus
