#include "Common/MRLException.h"
#include "Toolkit/MRLSchemaEnumImpl.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_String.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLUtCrc32.h"

#include <algorithm>
#include <cstring>

namespace mrl::detail {

namespace {

const EnumValue* findValue(const EnumDescriptor& descriptor, std::uint32_t value) {
    const auto found = std::lower_bound(descriptor.values.begin(), descriptor.values.end(), value,
                                        [](const EnumValue& row, std::uint32_t v) { return row.value < v; });
    return found != descriptor.values.end() && found->value == value ? &*found : nullptr;
}

} // namespace

const char* enumToString(const EnumDescriptor& descriptor, std::uint32_t value) {
    if (value == 0)
        return "";
    const EnumValue* const row = findValue(descriptor, value);
    if (row == nullptr)
        hblAssertFailed("HBL_ASSERT(it!=m_enumToStringMap.end());", HBL_HERE, __func__);
    return row->text;
}

std::uint32_t stringToEnum(const EnumDescriptor& descriptor, const char* name) {
    HBL_ASSERT(name);
    if (*name == '\0')
        return 0;
    const EnumValue* const row = findValue(descriptor, HBLUtCrc32::crc32(name, 0u));
    if (row == nullptr || std::strcmp(row->text, name) != 0) {
        const std::string function = std::string(descriptor.className) + "::stringToEnum()";
        HBL_THROW(MRLException(0) << (MRLHBLMessage(msg::unknownEnumValue) << name), function.c_str());
    }
    return row->value;
}

void requireInitialized(const EnumDescriptor& descriptor, std::uint32_t value) {
    if (value == 0)
        hblAssertFailed(std::string("HBL_ASSERT_NAMED(m_value != ") + descriptor.className +
                            "::eRSOAMUninitialized, \"Enum not initialized.\");",
                        HBL_HERE, "getChildObject");
}

std::uint32_t enumFromChild(const EnumDescriptor& descriptor, const char* name, void* obj,
                            MRLSchemaTypeI::ObjectType type) {
    HBL_ASSERT(name);
    HBL_ASSERT(obj);
    if (MRLSchemaTypesFactory::isString(type) == 0)
        MRLSchemaTypesFactory::typeError(descriptor.schemaName, name, MRLSchemaTypeI::eString, type);
    // What comes from an attachment is plain characters; only a MRL_String is trimmed in place.
    if (type == MRLSchemaTypeI::eCharStreamable)
        return stringToEnum(descriptor, static_cast<const char*>(obj));
    auto& text = *static_cast<MRL_String*>(obj);
    text.trim();
    return stringToEnum(descriptor, text.str());
}

} // namespace mrl::detail
