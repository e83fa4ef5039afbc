#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

class MRLBase64Binary;
class MRLObjectRegistryI;
class MRLSchemaTypeArrayI;

namespace mrl::bus {

/// Members of schema objects by name, for code that does not know their classes. Reading a member that
/// is absent, or that the class does not have, gives nothing. What writing makes belongs to the registry.
struct SchemaAccess {
    using ObjectType = MRLSchemaTypeI::ObjectType;

    /// The text of an object that is one: an enumeration, a search path, and the like.
    static std::optional<std::string> text(MRLSchemaTypeI* object);

    /// A member that is a text, or an object that is one.
    static std::optional<std::string> text(MRLSchemaTypeI* object, const char* member);

    /// The bytes of a binary value, those of an attachment as well.
    static std::string bytes(const MRLBase64Binary& value);

    /// A member that is a number or a boolean.
    static std::optional<std::int64_t> number(MRLSchemaTypeI* object, const char* member);

    /// A member that is an object or an array; null when absent.
    static MRLSchemaTypeI* object(MRLSchemaTypeI* object, const char* member);

    /// A member that is an array of texts, or of objects that are texts.
    static std::vector<std::string> texts(MRLSchemaTypeI* object, const char* member);
    static std::vector<std::string> texts(MRLSchemaTypeArrayI* array);

    /// The elements of an array of objects; null elements are left out.
    static std::vector<MRLSchemaTypeI*> elements(MRLSchemaTypeArrayI* array);

    /// `object` as the array it is, null when it is none.
    static MRLSchemaTypeArrayI* asArray(MRLSchemaTypeI* object);

    /// Whether the object is nothing but a text: its one member has the empty name.
    static bool isText(const MRLSchemaTypeI& object);

    /// A new object of the class `type`.
    /// @throws MRLException for an abstract type.
    static MRLSchemaTypeI* create(ObjectType type, MRLObjectRegistryI& registry);

    /// Sets a member that is a text, or an object that is one; an array gets one more element.
    /// @return false when there is no such member, or it is of another kind.
    static bool setText(MRLSchemaTypeI& object, const char* member, std::string_view text,
                        MRLObjectRegistryI& registry);

    /// Sets a member that is a whole number or a boolean; likewise.
    static bool setNumber(MRLSchemaTypeI& object, const char* member, std::int64_t number);

    /// Sets a member that is a decimal; likewise.
    static bool setDecimal(MRLSchemaTypeI& object, const char* member, double number);

    static bool isWholeNumber(ObjectType type);
    static bool isDecimal(ObjectType type);
};

} // namespace mrl::bus
