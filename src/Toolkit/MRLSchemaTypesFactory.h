#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

#include <string>

class MRLObjectRegistryI;
class MRLSchemaTypeArrayI;

/// From a type number to what can be done with the type: its name on the wire, a new object, a deep
/// copy; and back from the name to the number. Reads constant tables only; thread-safe.
class MRL_EXPORT MRLSchemaTypesFactory {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    static MRLSchemaTypesFactory& getInstance();
    virtual ~MRLSchemaTypesFactory();

    MRLSchemaTypesFactory(const MRLSchemaTypesFactory&) = delete;
    MRLSchemaTypesFactory& operator=(const MRLSchemaTypesFactory&) = delete;

    /// A new object, owned by the caller; e_Unknown makes a MRLUnknownSchemaType.
    /// @throws MRLException for an abstract, primitive or unknown type; HBLOutOfMemoryError.
    MRLSchemaTypeI* create(ObjectType type);

    /// A deep copy, owned by `registry` like all that it holds.
    /// @throws MRLException for a type that cannot be copied; HBLOutOfMemoryError.
    MRLSchemaTypeI& createCopy(const MRLSchemaTypeI& obj, MRLObjectRegistryI& registry);

    /// "bus:nameValue"; the class name for the hand-written types. A constant.
    /// @throws HBLAssertError for e_Unknown and for a number without a type.
    const char* objectTypeToXSIType(ObjectType type);

    /// The type of "bus:nameValue" or "xs:string"; e_Unknown when there is none.
    ObjectType xsiTypeToObjectType(const std::string& xsiType);

    /// The type of an unqualified name, a type of the bus before a primitive one; e_Unknown when there
    /// is none, and for null.
    ObjectType stringToObjectType(const char* name);

    /// The array type of "bus:policy[]", terminated UTF-16.
    /// @throws HBLAssertError for null, and for anything that is not an array of a schema class.
    ObjectType arrayTypeToObjectType(const char16_t* arrayType);

    /// Writes "bus:policy[3]", with the size of `array`, or "bus:policy[]" for a null one.
    /// @throws HBLAssertError for a type that is no array.
    void objectTypeToArrayType(ObjectType type, MRLSchemaTypeArrayI* array, std::string& out);

    /// 1 for an array type.
    int isArrayType(ObjectType type);

    /// 1 for numbers outside the primitive range, known or not: such a value is a MRLSchemaTypeI.
    static int isGeneratedType(ObjectType type);

    /// 1 for the types whose values are text.
    static int isString(ObjectType type);
    static int isBase64(ObjectType type);

    /// Always throws: the value given to a child is of the wrong type.
    /// @throws MRLException with class, child, and the names of both types; HBLAssertError when
    ///         either type has no name.
    [[noreturn]] static void typeError(const char* className, const char* childName, ObjectType expected,
                                       ObjectType actual);

private:
    MRLSchemaTypesFactory() = default;
    const char* objectTypeToXSITypeImpl(ObjectType type);
};
