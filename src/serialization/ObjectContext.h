#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include <string>
#include <utility>

/// One value to be written into the header or the body of an envelope.
class ObjectContext {
public:
    /// @param value borrowed; null writes the element as nil or not at all.
    /// @param qualifiedName the element's name with its prefix.
    ObjectContext(void* value, MRLSchemaTypeI::ObjectType type, std::string qualifiedName)
        : object(value)
        , objectType(type)
        , name(std::move(qualifiedName)) {}

    void* object;
    MRLSchemaTypeI::ObjectType objectType;
    std::string name;
};
