// Generated from catalogue/enums/shapes.toml.
#pragma once

#include "Toolkit/MRLSchemaEnum.h"

#include "HBLCore/MRLExport.h"

/// The links of a part, which are URIs and no type of the wire.
class MRL_EXPORT MRLLinkEnum : public MRLSchemaEnum<MRLLinkEnum> {
public:
    /// The number of a value is the CRC-32 of its text.
    enum Enum : std::uint32_t {
        eRSOAMUninitialized = 0,
        eNext = 0xCECF37BB,
        ePrevious = 0x6A8C9B79,
    };

    static constexpr ObjectType s_objectType = static_cast<ObjectType>(static_cast<std::int32_t>(0xAF9C95AEu));
    static constexpr const char* s_className = "MRLLinkEnum";
    static const mrl::detail::EnumDescriptor s_descriptor;

    MRLLinkEnum();
    MRLLinkEnum(const MRLLinkEnum& other, MRLObjectRegistryI& registry);
    MRLLinkEnum(const MRLLinkEnum&) = delete;
    MRLLinkEnum& operator=(const MRLLinkEnum&) = delete;
    ~MRLLinkEnum() override;

    Enum getValue() const { return static_cast<Enum>(m_value); }
    void setValue(Enum value) { m_value = value; }
    /// @throws MRLException for a text that is no value; HBLAssertError for null.
    void setValue(const char* text);

    /// @throws MRLException for a text that is no value; HBLAssertError for null.
    static Enum stringToEnum(const char* name);
    /// The text of a value, a constant; empty for eRSOAMUninitialized.
    /// @throws HBLAssertError for a number that is no value.
    static const char* enumToString(Enum value);
};

extern template class MRLSchemaEnum<MRLLinkEnum>;
