// How the reader learns the type of an element: prefixes, xsi:type and SOAP-ENC:arrayType.
#include "Toolkit/MRLNamespaces.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "serialization/MRLSchemaTypeIContentHandler.h"
#include "serialization/MRLXMLChConstants.h"
#include "serialization/MRL_AttachmentHandler.h"
#include "serialization/detail/Throw.h"
#include "serialization/detail/Utf8.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLUtCrc32.h"

#include <xercesc/sax2/Attributes.hpp>

#include <algorithm>

using mrl::detail::throwFailure;

namespace {

constexpr std::size_t NAME_LIMIT = 256; // UTF-16 units

std::string narrowed(std::u16string_view text) {
    std::string narrow(mrl::detail::utf8Length(text), '\0');
    mrl::detail::toUtf8(text, narrow.data());
    return narrow;
}

bool isTrue(std::u16string_view value) {
    return value == u"true";
}

} // namespace

/// Compares with the name of a namespace. Where the source keeps one copy of each, a place that was equal
/// once is equal again.
bool MRLSchemaTypeIContentHandler::isSpace(const XMLCh* uri, const std::u16string& space,
                                           const XMLCh*& known) const {
    if (uri == known && m_keepsNames) {
        return true;
    }
    if (space != uri) {
        return false;
    }
    known = uri;
    return true;
}

MRLSchemaTypeIContentHandler::WireAttributes
MRLSchemaTypeIContentHandler::readAttributes(const xercesc::Attributes& attributes) {
    const MRLXMLChConstants& names = MRLXMLChConstants::getInstance();
    WireAttributes wire;
    bool isNilKnown = false;
    bool isHrefKnown = false;
    const XMLSize_t count = attributes.getLength();
    for (XMLSize_t i = 0; i < count; ++i) {
        const XMLCh* const name = attributes.getLocalName(i);
        switch (*name) {
        case u't':
            if (wire.type == nullptr && names.m_type == name &&
                isSpace(attributes.getURI(i), names.m_xmlSchemaInstanceNamespace, m_instanceUri)) {
                wire.type = attributes.getValue(i);
            }
            break;
        case u'a':
            if (wire.arrayType == nullptr && names.m_arrayType == name &&
                isSpace(attributes.getURI(i), names.m_soapEncodingNamespace, m_encodingUri)) {
                wire.arrayType = attributes.getValue(i);
            }
            break;
        case u'n':
            if (!isNilKnown && names.m_nil == name &&
                isSpace(attributes.getURI(i), names.m_xmlSchemaInstanceNamespace, m_instanceUri)) {
                wire.isNil = isTrue(attributes.getValue(i));
                isNilKnown = true;
            }
            break;
        case u'h':
            if (!isHrefKnown && names.m_href == name) {
                wire.contentId = MRL_AttachmentHandler::getCid(attributes.getValue(i));
                isHrefKnown = true;
            }
            break;
        default: break;
        }
    }
    return wire;
}

std::uint32_t MRLSchemaTypeIContentHandler::prefixKey(std::u16string_view prefix) {
    constexpr char16_t terminator = 0; // the key covers it
    const unsigned units = HBLUtCrc32::crc32(0u, prefix.data(), prefix.size() * sizeof(char16_t));
    return HBLUtCrc32::crc32(units, &terminator, sizeof terminator);
}

MRLSchemaTypeIContentHandler::Space MRLSchemaTypeIContentHandler::spaceOf(const XMLCh* uri) {
    const MRLXMLChConstants& names = MRLXMLChConstants::getInstance();
    const std::u16string_view text = uri == nullptr ? std::u16string_view() : std::u16string_view(uri);
    if (text == names.m_xmlSchemaNamespace) {
        return Space::xmlSchema;
    }
    if (text == names.m_soapEncodingNamespace) {
        return Space::encoding;
    }
    constexpr std::string_view bus = mrl::ns::bus;
    return std::equal(text.begin(), text.end(), bus.begin(), bus.end()) ? Space::bus : Space::unknown;
}

MRLSchemaTypeIContentHandler::Space
MRLSchemaTypeIContentHandler::getURIForPrefix(std::u16string_view prefix) const {
    const std::uint32_t key = prefixKey(prefix);
    for (const Mapping& mapping : m_inScopePrefixesToNamespaceMappings) {
        if (mapping.prefixKey == key) {
            return mapping.space;
        }
    }
    return Space::unknown;
}

/// Elements of one name are mostly of one type.
MRLSchemaTypeI::ObjectType MRLSchemaTypeIContentHandler::getObjectType(Name& name,
                                                                       const WireAttributes& attributes) {
    if (attributes.type == nullptr) {
        return MRLSchemaTypeI::e_Unknown;
    }
    if (name.prefixesThen == m_prefixes && mrl::detail::isText(attributes.type, name.lastType->text)) {
        return name.lastType->value;
    }
    const std::u16string_view type(attributes.type);
    const Types::Entry* known = m_types.find(type);
    if (known == nullptr) {
        const ObjectType resolved = resolveType(name.text.c_str(), type, attributes.arrayType);
        known = m_types.find(type); // if it does not hang on an arrayType
        if (known == nullptr) {
            return resolved;
        }
    }
    name.lastType = known;
    name.prefixesThen = m_prefixes;
    return known->value;
}

MRLSchemaTypeI::ObjectType MRLSchemaTypeIContentHandler::resolveType(const char* localname,
                                                                     std::u16string_view type,
                                                                     const XMLCh* arrayType) {
    const std::size_t colonPos = type.find(u':');
    if (colonPos == std::u16string_view::npos) {
        return MRLSchemaTypeI::e_Unknown;
    }
    HBL_ASSERT_NAMED(type.size() < NAME_LIMIT, "The default buffer size needs to be increased.");
    HBL_ASSERT(colonPos > 0);
    switch (getURIForPrefix(type.substr(0, colonPos))) {
    case Space::encoding: return getArrayType(localname, type, arrayType);
    case Space::bus: return getNamedType(type, "bus:", localname);
    case Space::xmlSchema: return getNamedType(type, "xs:", localname);
    case Space::unknown: break;
    }
    return MRLSchemaTypeI::e_Unknown;
}

MRLSchemaTypeI::ObjectType MRLSchemaTypeIContentHandler::getNamedType(std::u16string_view type,
                                                                      std::string_view prefix,
                                                                      const char* localname) {
    const std::u16string_view localPart = type.substr(type.find(u':') + 1);
    m_typeName.assign(prefix);
    m_typeName.resize(prefix.size() + mrl::detail::utf8Length(localPart));
    mrl::detail::toUtf8(localPart, m_typeName.data() + prefix.size());
    try {
        const ObjectType known = MRLSchemaTypesFactory::getInstance().xsiTypeToObjectType(m_typeName);
        m_types.add(type, known);
        return known;
    } catch (const HBLThrowable&) {
        throwFailure(HBL_HERE, "MRLSchemaTypeIContentHandler::getObjectType()", msg::unresolvedType,
                     narrowed(type), localname);
    }
}

MRLSchemaTypeI::ObjectType MRLSchemaTypeIContentHandler::getArrayType(const char* localname,
                                                                      std::u16string_view type,
                                                                      const XMLCh* arrayType) {
    if (arrayType == nullptr) {
        throwFailure(HBL_HERE, "MRLSchemaTypeIContentHandler::startElement", msg::arrayTypeMissing,
                     localname);
    }
    const std::u16string name = getBusXsiType(arrayType, localname);
    if (name.empty()) {
        return MRLSchemaTypeI::e_Unknown;
    }
    try {
        return MRLSchemaTypesFactory::getInstance().arrayTypeToObjectType(name.c_str());
    } catch (const HBLThrowable&) {
        throwFailure(HBL_HERE, "MRLSchemaTypeIContentHandler::getObjectType()", msg::unresolvedType,
                     narrowed(type), localname);
    }
}

/// "bus:policy[]" for any prefix that stands for the bus and any size, which is not looked at; empty
/// for other namespaces.
std::u16string MRLSchemaTypeIContentHandler::getBusXsiType(std::u16string_view arrayType,
                                                           const char* localname) const {
    const std::size_t colonPos = arrayType.find(u':');
    if (colonPos == std::u16string_view::npos) {
        throwFailure(HBL_HERE, "MRLSchemaTypeIContentHandler::getBusXsiType()", msg::arrayTypeWithoutPrefix,
                     narrowed(arrayType), localname);
    }
    if (getURIForPrefix(arrayType.substr(0, colonPos)) != Space::bus) {
        return {};
    }
    const std::u16string_view element = arrayType.substr(colonPos + 1);
    std::u16string name = u"bus:";
    name += element.substr(0, element.find(u'['));
    name += u"[]";
    HBL_ASSERT_NAMED(name.size() < NAME_LIMIT, "The default buffer size needs to be increased.");
    return name;
}

void MRLSchemaTypeIContentHandler::checkType(const char* name, const void* object, ObjectType type,
                                             ObjectType expected) {
    const bool isGenerated = MRLSchemaTypesFactory::isGeneratedType(type) != 0;
    const bool fits =
        isGenerated ? static_cast<const MRLSchemaTypeI*>(object)->isa(expected) != 0 : type == expected;
    if (!fits) {
        MRLSchemaTypesFactory& types = MRLSchemaTypesFactory::getInstance();
        throwFailure(HBL_HERE, "MRLSchemaTypeIContentHandler::checkType()",
                     isGenerated ? msg::notDerivedFrom : msg::wrongSimpleType,
                     types.objectTypeToXSIType(type), types.objectTypeToXSIType(expected), name);
    }
}

void MRLSchemaTypeIContentHandler::checkItem(const void* item, ObjectType type, ObjectType declared) {
    const bool isGenerated = MRLSchemaTypesFactory::isGeneratedType(type) != 0;
    const bool fits = isGenerated ? MRLSchemaTypesFactory::isGeneratedType(declared) != 0 &&
                                        static_cast<const MRLSchemaTypeI*>(item)->isa(declared) != 0
                                  : type == declared;
    if (!fits) {
        MRLSchemaTypesFactory& types = MRLSchemaTypesFactory::getInstance();
        throwFailure(HBL_HERE, "MRLSchemaTypeIContentHandler::startElement", msg::wrongItemType,
                     types.objectTypeToXSIType(type), types.objectTypeToXSIType(declared));
    }
}
