#pragma once

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLSchemaTypeRows.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_String.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLUtCrc32.h"

#include <memory>
#include <span>

/// The types of the library as its factory has them.
inline std::span<const mrl::detail::SchemaTypeRow> schemaTypeRows() {
    return {mrl::detail::g_schemaTypes.rows, mrl::detail::g_schemaTypes.count};
}

inline MRLSchemaTypesFactory& schemaTypesFactory() {
    return MRLSchemaTypesFactory::getInstance();
}

/// The number of a type or message name.
template <class Number>
Number numberOf(const char* name) {
    return static_cast<Number>(HBLUtCrc32::crc32(name, 0));
}

/// Makes a value for any declared type. All of them live as long as the maker, or until clean().
class CatalogueValues {
public:
    using Type = MRLSchemaTypeI::ObjectType;

    /// A new object of `type`, or of the first concrete type derived from it.
    MRLSchemaTypeI* make(Type type) {
        for (const auto& row : schemaTypeRows()) {
            if (row.type != type || row.create != nullptr)
                continue;
            for (const auto& other : schemaTypeRows())
                if (other.create != nullptr) {
                    std::unique_ptr<MRLSchemaTypeI> object(schemaTypesFactory().create(other.type));
                    if (object->isa(type) != 0)
                        return adopt(object.release());
                }
            return nullptr;
        }
        return adopt(schemaTypesFactory().create(type));
    }

    MRLSchemaTypeI* adopt(MRLSchemaTypeI* object) {
        m_registry->registerPointer(object);
        return object;
    }

    MRL_String* text(const char* content) {
        auto* text = new MRL_String;
        m_registry->registerPointer(text);
        text->append(content);
        return text;
    }

    /// A value that fits the declared type, and the type it has.
    void* valueFor(Type declared, Type& actual) {
        actual = declared;
        switch (declared) {
        case MRLSchemaTypeI::eString: return text("text");
        case MRLSchemaTypeI::eBase64Binary: {
            auto* binary = new MRLBase64Binary("bytes", 5);
            m_registry->registerPointer(binary);
            return binary;
        }
        case MRLSchemaTypeI::eInt:
        case MRLSchemaTypeI::eInteger:
        case MRLSchemaTypeI::eBoolean: return &m_number;
        case MRLSchemaTypeI::eDecimal:
        case MRLSchemaTypeI::eFloat: return &m_decimal;
        default: break;
        }
        MRLSchemaTypeI* object = make(declared);
        if (object != nullptr)
            actual = object->getObjectType();
        return object;
    }

    /// Whether `stored`, as it is read, is what valueFor() gave.
    static bool holds(Type declared, const void* stored, void* given) {
        switch (declared) {
        case MRLSchemaTypeI::eString: return stored == static_cast<MRL_String*>(given)->str();
        case MRLSchemaTypeI::eInt:
        case MRLSchemaTypeI::eInteger:
        case MRLSchemaTypeI::eBoolean: return stored != nullptr && *static_cast<const int*>(stored) == 1;
        case MRLSchemaTypeI::eDecimal:
        case MRLSchemaTypeI::eFloat: return stored != nullptr && *static_cast<const double*>(stored) == 1.5;
        default: return stored == given;
        }
    }

    MRLObjectRegistryI& registry() { return *m_registry; }
    void clean() { m_registry->clean(); }

private:
    HBLSmartPointer<MRLObjectRegistryI> m_registry{MRLObjectRegistry::create()};
    int m_number = 1;
    float m_decimal = 1.5F;
};
