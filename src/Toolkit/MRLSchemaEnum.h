#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include <cstdint>
#include <span>

class MRLObjectRegistryI;

namespace mrl::detail {

/// A value of an enumeration: its text, and the CRC-32 of it.
struct EnumValue {
    std::uint32_t value;
    const char* text;
};

/// What an enumeration class is made of; a constant.
struct EnumDescriptor {
    const char* className;             // "MRLSeverityEnum"
    const char* schemaName;            // "severityEnum"
    std::span<const EnumValue> values; // sorted by value; "not initialized" has no row
};

} // namespace mrl::detail

/// The shared form of all enumerations: one value, 0 while not initialized, with the CRC-32 of its
/// text for a number. `Self` is the generated class, which gives s_objectType and s_descriptor. The
/// definitions stand in MRLSchemaEnumImpl.h, for the one source that instantiates the enumeration.
template <class Self>
class MRL_EXPORT MRLSchemaEnum : public MRLSchemaTypeI {
public:
    MRLSchemaEnum();
    MRLSchemaEnum(const Self& other, MRLObjectRegistryI& registry);
    ~MRLSchemaEnum() override;

    ObjectType getObjectType() const override;
    const std::string& getGeneratedObjectName() const override;

    /// The text, whatever the name; with `create` the address of the number.
    /// @throws HBLAssertError with `create`, while not initialized.
    void* getChildObject(const char* name, int create) override;
    ObjectType getChildType(const char* name) const override;

    /// Sets the value from `obj`, a MRL_String, which is trimmed in place.
    std::size_t setChildObject(const char* name, void* obj, const ObjectType& type,
                               std::size_t* index) override;
    void getChildObjectNames(std::vector<const char*>& names, bool reserve) const override;
    int isa(ObjectType type) const override;

private:
    std::size_t getChildObjectCount() const override;

public:
    virtual int operator==(const MRLSchemaTypeI& other) const;
    virtual int operator!=(const MRLSchemaTypeI& other) const;

    /// The text of the value, a constant; empty while not initialized.
    const char* toString() const;

protected:
    std::uint32_t m_value = 0;
};

namespace mrl::detail {

/// The text of a value, a constant; "" for 0.
/// @throws HBLAssertError for a value that the enumeration does not have.
const char* enumToString(const EnumDescriptor& descriptor, std::uint32_t value);

/// The value of a text, exactly as it is written; 0 for "".
/// @throws MRLException for a text that the enumeration does not have; HBLAssertError for null.
std::uint32_t stringToEnum(const EnumDescriptor& descriptor, const char* name);

} // namespace mrl::detail
