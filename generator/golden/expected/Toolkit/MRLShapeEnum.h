// Generated from catalogue/enums/shapes.toml.
#pragma once

#include "Toolkit/MRLSchemaEnum.h"

#include "HBLCore/MRLExport.h"

/// The shapes of parts.
class MRL_EXPORT MRLShapeEnum : public MRLSchemaEnum<MRLShapeEnum> {
public:
    /// The number of a value is the CRC-32 of its text.
    enum Enum : std::uint32_t {
        eRSOAMUninitialized = 0,
        eNot_round = 0x9D50AFBC,
        eRound = 0xC5EEEA34,
        eSemi_round = 0x053E259B,
    };

    static constexpr ObjectType s_objectType = eMRLShapeEnum;
    static constexpr const char* s_className = "MRLShapeEnum";
    static const mrl::detail::EnumDescriptor s_descriptor;

    MRLShapeEnum();
    MRLShapeEnum(const MRLShapeEnum& other, MRLObjectRegistryI& registry);
    MRLShapeEnum(const MRLShapeEnum&) = delete;
    MRLShapeEnum& operator=(const MRLShapeEnum&) = delete;
    ~MRLShapeEnum() override;

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

extern template class MRLSchemaEnum<MRLShapeEnum>;
