#include "Toolkit/MRLSchemaTypesFactory.h"

#include "Common/MRLException.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypeRows.h"
#include "Toolkit/MRLUndocumentedFaultDetail.h"
#include "Toolkit/MRLUndocumentedFaultDetailArray.h"
#include "Toolkit/MRLUnknownSchemaType.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLUtCrc32.h"

#include <array>
#include <memory>
#include <string_view>

using mrl::detail::findSchemaType;
using mrl::detail::SchemaTypeRow;
using ObjectType = MRLSchemaTypeI::ObjectType;

namespace {

constexpr std::string_view busPrefix = "bus:";
constexpr std::string_view xsPrefix = "xs:";

// The types whose numbers are small: primitives, which are no objects, and the hand-written classes,
// which carry their class names and have neither a copier nor a way back from the name.
constexpr std::array<SchemaTypeRow, 15> smallTypes{{
    {MRLSchemaTypeI::e_Unknown, "MRLUnknownSchemaType", mrl::detail::createSchemaType<MRLUnknownSchemaType>,
     nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eString, "xs:string", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eInt, "xs:int", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eInteger, "xs:integer", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eDecimal, "xs:decimal", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eTime, "xs:time", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eDateTime, "xs:dateTime", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eBoolean, "xs:boolean", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eBase64Binary, "xs:base64Binary", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eFloat, "xs:float", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eQName, "xs:QName", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eAnyType, "xs:anyType", nullptr, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eMRLUndocumentedFaultDetail, "MRLUndocumentedFaultDetail",
     mrl::detail::createSchemaType<MRLUndocumentedFaultDetail>, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eMRLUndocumentedFaultDetailArray, "MRLUndocumentedFaultDetailArray",
     mrl::detail::createSchemaType<MRLUndocumentedFaultDetailArray>, nullptr, nullptr, false, nullptr},
    {MRLSchemaTypeI::eMRLSOAPFault, "MRLSOAPFault", mrl::detail::createSchemaType<MRLSOAPFault>, nullptr,
     nullptr, false, nullptr},
}};

const SchemaTypeRow* findGenerated(std::uint32_t crc) {
    const mrl::detail::SchemaTypeTable& table = mrl::detail::g_schemaTypes;
    return mrl::detail::findByCrc(table.rows, *table.buckets, crc, mrl::detail::schemaTypeKey);
}

// The row of a schema name, which need not be terminated.
const SchemaTypeRow* findSchemaName(std::string_view name) {
    const SchemaTypeRow* const row = findGenerated(HBLUtCrc32::crc32(0u, name.data(), name.size()));
    return row != nullptr && std::string_view(row->xsiName).substr(busPrefix.size()) == name ? row : nullptr;
}

ObjectType findPrimitive(std::string_view xsiType) {
    for (const SchemaTypeRow& row : smallTypes)
        if (row.create == nullptr && xsiType == row.xsiName)
            return row.type;
    return MRLSchemaTypeI::e_Unknown;
}

// "policy" of u"bus:policy[]"; empty when the text has another form.
std::string arrayElementName(std::u16string_view arrayType) {
    constexpr std::u16string_view prefix = u"bus:";
    constexpr std::u16string_view suffix = u"[]";
    if (!arrayType.starts_with(prefix) || !arrayType.ends_with(suffix) ||
        arrayType.size() <= prefix.size() + suffix.size())
        return {};
    arrayType.remove_prefix(prefix.size());
    arrayType.remove_suffix(suffix.size());
    std::string name;
    for (const char16_t unit : arrayType) {
        if (unit > 0x7F) // schema names are plain ASCII
            return {};
        name.push_back(static_cast<char>(unit));
    }
    return name;
}

// The array of a schema class. It is named for its element; where it is not, its row tells.
const SchemaTypeRow* findArrayOf(std::string_view element) {
    const auto holds = [&](const SchemaTypeRow& row) {
        return row.isArrayOfClass && std::string_view(row.elementXsiName).substr(busPrefix.size()) == element;
    };
    const SchemaTypeRow* const named = findSchemaName(std::string(element) + "Array");
    if (named != nullptr && holds(*named))
        return named;
    const mrl::detail::SchemaTypeTable& table = mrl::detail::g_schemaTypes;
    for (std::size_t i = 0; i < table.count; ++i)
        if (holds(table.rows[i]))
            return &table.rows[i];
    return nullptr;
}

[[noreturn]] void notCreatable(const SchemaTypeRow* row, const char* function) {
    const char* const name = row != nullptr ? row->xsiName : smallTypes[0].xsiName;
    MRLException failure(0);
    failure << (MRLHBLMessage(msg::typeNotCreatable) << name);
    HBL_THROW(failure, function);
}

} // namespace

namespace mrl::detail {

const SchemaTypeRow* findSchemaType(ObjectType type) {
    const auto number = static_cast<std::uint32_t>(type);
    return number < smallTypes.size() ? &smallTypes[number] : findGenerated(number);
}

void requireIsa(const MRLSchemaTypeI& obj, ObjectType type, const char* className) {
    if (obj.isa(type) == 0)
        hblAssertFailed(std::string("HBL_ASSERT(obj.isa(MRLSchemaTypeI::e") + className + "));", HBL_HERE,
                        __func__);
}

} // namespace mrl::detail

MRLSchemaTypesFactory& MRLSchemaTypesFactory::getInstance() {
    static auto* const instance =
        hblRethrowing("MRLSchemaTypesFactory::getInstance", [] { return new MRLSchemaTypesFactory; });
    return *instance;
}

MRLSchemaTypesFactory::~MRLSchemaTypesFactory() = default;

MRLSchemaTypeI* MRLSchemaTypesFactory::create(ObjectType type) {
    const SchemaTypeRow* const row = findSchemaType(type);
    if (row == nullptr || row->create == nullptr)
        notCreatable(row, "MRLSchemaTypesFactory::create()");
    return hblRethrowing("MRLSchemaTypesFactory::create()", row->create);
}

MRLSchemaTypeI& MRLSchemaTypesFactory::createCopy(const MRLSchemaTypeI& obj, MRLObjectRegistryI& registry) {
    const SchemaTypeRow* const row = findSchemaType(obj.getObjectType());
    if (row == nullptr || row->copy == nullptr)
        notCreatable(row, "MRLSchemaTypesFactory::createCopy()");
    return *hblRethrowing("MRLSchemaTypesFactory::createCopy()", [&] {
        std::unique_ptr<MRLSchemaTypeI> copy(row->copy(obj, registry));
        registry.registerPointer(copy.get());
        return copy.release();
    });
}

const char* MRLSchemaTypesFactory::objectTypeToXSIType(ObjectType objType) {
    HBL_ASSERT(objType != MRLSchemaTypeI::e_Unknown);
    const char* const name = objectTypeToXSITypeImpl(objType);
    if (name == nullptr)
        HBL_ASSERT_NAMED(FALSE, "MRLSchemaTypesFactory::objectTypeToXSIType(): unknown object type.");
    return name;
}

const char* MRLSchemaTypesFactory::objectTypeToXSITypeImpl(ObjectType type) {
    const SchemaTypeRow* const row = findSchemaType(type);
    return row != nullptr ? row->xsiName : nullptr;
}

ObjectType MRLSchemaTypesFactory::xsiTypeToObjectType(const std::string& xsiType) {
    if (!xsiType.starts_with(busPrefix))
        return findPrimitive(xsiType);
    const SchemaTypeRow* const row = findSchemaName(std::string_view(xsiType).substr(busPrefix.size()));
    return row != nullptr ? row->type : MRLSchemaTypeI::e_Unknown;
}

ObjectType MRLSchemaTypesFactory::stringToObjectType(const char* name) {
    if (name == nullptr || *name == '\0')
        return MRLSchemaTypeI::e_Unknown;
    if (const SchemaTypeRow* const row = findSchemaName(name))
        return row->type;
    return findPrimitive(std::string(xsPrefix) + name);
}

ObjectType MRLSchemaTypesFactory::arrayTypeToObjectType(const char16_t* arrayType) {
    HBL_ASSERT(arrayType);
    const std::string element = arrayElementName(arrayType);
    const SchemaTypeRow* const row = element.empty() ? nullptr : findArrayOf(element);
    if (row == nullptr)
        HBL_ASSERT_NAMED(FALSE, "MRLSchemaTypesFactory::arrayTypeToObjectType(): unknown xsi:type: ");
    return row->type;
}

void MRLSchemaTypesFactory::objectTypeToArrayType(ObjectType objType, MRLSchemaTypeArrayI* array,
                                                  std::string& out) {
    HBL_ASSERT(objType != MRLSchemaTypeI::e_Unknown);
    const SchemaTypeRow* const row = findSchemaType(objType);
    if (row == nullptr || row->elementXsiName == nullptr)
        HBL_ASSERT_NAMED(FALSE, "MRLSchemaTypesFactory::objectTypeToArrayType(): unknown object type.");
    out = row->elementXsiName;
    out += '[';
    if (array != nullptr)
        out += std::to_string(static_cast<std::uint32_t>(array->size()));
    out += ']';
}

int MRLSchemaTypesFactory::isArrayType(ObjectType type) {
    const SchemaTypeRow* const row = findSchemaType(type);
    return row != nullptr && row->elementXsiName != nullptr ? 1 : 0;
}

int MRLSchemaTypesFactory::isGeneratedType(ObjectType type) {
    const bool primitive = type >= MRLSchemaTypeI::eString && type <= MRLSchemaTypeI::eAnyType;
    return primitive || type == MRLSchemaTypeI::eCharStreamable ? 0 : 1;
}

int MRLSchemaTypesFactory::isString(ObjectType type) {
    switch (type) {
    case MRLSchemaTypeI::eString:
    case MRLSchemaTypeI::eTime:
    case MRLSchemaTypeI::eDateTime:
    case MRLSchemaTypeI::eQName:
    case MRLSchemaTypeI::eAnyType:
    case MRLSchemaTypeI::eCharStreamable: return 1;
    default: return 0;
    }
}

int MRLSchemaTypesFactory::isBase64(ObjectType type) {
    return type == MRLSchemaTypeI::eBase64Binary ? 1 : 0;
}

void MRLSchemaTypesFactory::typeError(const char* className, const char* childName, ObjectType expected,
                                      ObjectType actual) {
    MRLSchemaTypesFactory& factory = getInstance();
    const char* const expectedName = factory.objectTypeToXSIType(expected);
    const char* const actualName = factory.objectTypeToXSIType(actual);
    MRLException failure(0);
    failure << (MRLHBLMessage(msg::wrongMemberType) << className << childName << expectedName << actualName);
    HBL_THROW(failure, "MRLSchemaTypesFactory::typeError()");
}
