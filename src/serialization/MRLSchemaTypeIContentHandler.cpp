#include "serialization/MRLSchemaTypeIContentHandler.h"

#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypeRows.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLUndocumentedFaultDetail.h"
#include "Toolkit/MRLUndocumentedFaultDetailArray.h"
#include "Toolkit/MRLZOR_Unsupported.h"
#include "serialization/detail/Adopt.h"
#include "serialization/detail/GuardedInput.h"
#include "serialization/detail/Throw.h"
#include "serialization/detail/Utf8.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLUtCrc32.h"

#include <cstddef>
#include <cstring>

using mrl::detail::adopted;
using mrl::detail::ClassPlan;
using mrl::detail::ElementEntry;
using mrl::detail::throwFailure;

namespace {

constexpr const char* START_ELEMENT = "MRLSchemaTypeIContentHandler::startElement";
constexpr const char* CHARACTERS = "MRLSchemaTypeIContentHandler::characters";

bool isArrayType(MRLSchemaTypeI::ObjectType type) {
    return type == MRLSchemaTypeI::eMRLUndocumentedFaultDetailArray ||
           MRLSchemaTypesFactory::getInstance().isArrayType(type) != 0;
}

bool isGenerated(MRLSchemaTypeI::ObjectType type) {
    return MRLSchemaTypesFactory::isGeneratedType(type) != 0;
}

} // namespace

MRLSchemaTypeIContentHandler::MRLSchemaTypeIContentHandler(
    const XMLCh* localname, const xercesc::Attributes& attributes, const MRLPrefixMappings& inScopeMappings,
    ObjectType expectedType, MRLObjectRegistryI* objectRegistry, const I18NConverter* converter)
    : MRLContentHandler(converter)
    , m_objectRegistry(objectRegistry) {
    HBL_ASSERT(localname && *localname);
    HBL_ASSERT(m_objectRegistry);
    for (const MRLPrefixMapping& mapping : inScopeMappings) {
        MRLSchemaTypeIContentHandler::startPrefixMapping(mapping.prefix.c_str(), mapping.uri.c_str());
    }
    Name& name = *nameOf(localname, m_spareName);
    const WireAttributes wire = readAttributes(attributes);
    ObjectType objType = getObjectType(name, wire);
    if (objType == MRLSchemaTypeI::e_Unknown) {
        objType = expectedType;
    }
    if (objType == MRLSchemaTypeI::e_Unknown) {
        m_skipDepth = 1;
        return;
    }
    const ElementName elementName{name.text.c_str(), false};
    if (wire.isNil) {
        m_nilElementName = name.text;
        m_objStack.push(elementName, objType, nullptr);
        return;
    }
    if (wire.contentId != nullptr) {
        m_contentId = convert(wire.contentId).get();
    }
    const ElementEntry& entry = pushNew(elementName, objType);
    if (expectedType != MRLSchemaTypeI::e_Unknown) {
        checkType(name.text.c_str(), entry.getParamValue(), objType, expectedType);
    }
    freshText();
}

MRLSchemaTypeIContentHandler::~MRLSchemaTypeIContentHandler() = default;

void MRLSchemaTypeIContentHandler::startDocument() {
    HBL_ASSERT(m_objectRegistry);
}

void MRLSchemaTypeIContentHandler::endDocument() {
    HBL_ASSERT_NAMED(m_inScopePrefixesToNamespaceMappings.empty(),
                     "There are namespace prefixes left on the mapping stack.");
    HBL_ASSERT_NAMED(m_objStack.empty(), "There are objects left on the object stack.");
}

MRLSchemaTypeI::ObjectType MRLSchemaTypeIContentHandler::getObjectType() const {
    if (m_skipDepth > 0) {
        return MRLSchemaTypeI::e_Unknown;
    }
    HBL_ASSERT(m_objStack.size() > 0);
    return m_objStack.back()->getParamType();
}

void* MRLSchemaTypeIContentHandler::getObject() {
    HBL_ASSERT(m_objStack.size() > 0);
    ElementEntry& entry = *m_objStack.back();
    if (entry.getParamType() == MRLSchemaTypeI::eMRLTavelHeader && m_credential != nullptr) {
        HBL_ASSERT(entry.getParamValue());
        entry.object()->setChildObject("ZOR", m_credential, MRLSchemaTypeI::eMRLZOR_Unsupported, nullptr);
        m_credential = nullptr;
    }
    setCurrentCharacterData(entry);
    return entry.getParamValue();
}

void MRLSchemaTypeIContentHandler::startElement(const XMLCh* /*uri*/, const XMLCh* localname,
                                                const XMLCh* /*qname*/,
                                                const xercesc::Attributes& attributes) {
    if (m_skipDepth > 0) {
        ++m_skipDepth;
        return;
    }
    HBL_ASSERT(m_objStack.size() > 0);
    ElementEntry* parent = m_objStack.back();
    if (parent->getParamType() == MRLSchemaTypeI::e_Unknown) {
        ++m_skipDepth;
        return;
    }
    refuseInEmptyElement();
    Name& name = *nameOf(localname, m_spareName);
    const ElementName elementName{name.text.c_str(), &name != &m_spareName};
    const WireAttributes wire = readAttributes(attributes);
    if (wire.isNil) { // nothing is pushed: the element counts as absent
        m_nilElementName = name.text;
        return;
    }
    if (!isGenerated(parent->getParamType())) {
        throwFailure(HBL_HERE, START_ELEMENT, msg::elementInSimpleValue, parent->getParamName());
    }
    HBL_ASSERT(parent->getParamValue());
    if (parent->getParamType() == MRLSchemaTypeI::eMRLZOR && name.text == "ZORCredential") {
        parent = &replaceByOldCredentialForm(*parent);
    }
    std::size_t member = ClassPlan::none;
    ObjectType declared = MRLSchemaTypeI::e_Unknown;
    if (parent->plan == nullptr) {
        declared = parent->object()->getChildType(elementName.text);
    } else if ((member = parent->plan->find(name.key)) != ClassPlan::none) {
        declared = parent->plan->members()[member].type;
    }
    if (declared == MRLSchemaTypeI::e_Unknown &&
        (parent->plan != nullptr || parent->object()->getObjectType() != MRLSchemaTypeI::e_Unknown)) {
        ++m_skipDepth;
        return;
    }
    if (wire.contentId != nullptr) {
        m_contentId = convert(wire.contentId).get();
    }
    const ObjectType xsiType = getObjectType(name, wire);
    if (parent->isArray) {
        startItem(*parent, elementName, xsiType);
    } else {
        startMember(*parent, elementName, member, declared, xsiType);
    }
}

/// The name of an element: from the map, or worked out in `spare` when the map has no room for it.
MRLSchemaTypeIContentHandler::Name* MRLSchemaTypeIContentHandler::nameOf(const XMLCh* localname,
                                                                         Name& spare) {
    const auto place = reinterpret_cast<std::uintptr_t>(localname) / alignof(XMLCh);
    KnownName& known = m_knownNames[(place ^ (place >> 6)) % m_knownNames.size()];
    if (m_keepsNames && known.place == localname) {
        return known.name;
    }
    const std::u16string_view text(localname);
    auto* entry = m_names.find(text);
    if (entry == nullptr) {
        spare.text = convert(localname).get();
        spare.key = HBLUtCrc32::crc32(spare.text.c_str(), 0u);
        entry = m_names.add(text, spare);
    }
    if (entry == nullptr) {
        return &spare;
    }
    known = {localname, &entry->value};
    return known.name;
}

void MRLSchemaTypeIContentHandler::refuseInEmptyElement() {
    if (m_nilElementName) {
        throwFailure(HBL_HERE, START_ELEMENT, msg::elementInNil, *m_nilElementName);
    }
    if (m_contentId) {
        throwFailure(HBL_HERE, START_ELEMENT, msg::elementInReference, m_objStack.back()->nameText(),
                     *m_contentId);
    }
}

void MRLSchemaTypeIContentHandler::startMember(ElementEntry& parent, const ElementName& name,
                                               std::size_t member, ObjectType declared, ObjectType xsiType) {
    MRLSchemaTypeI& object = *parent.object();
    const bool isArrayMember =
        parent.plan != nullptr ? parent.plan->members()[member].isArray : isArrayType(declared);
    if (!isArrayMember && isRepeated(parent, name.text, member)) {
        throwFailure(HBL_HERE, START_ELEMENT, msg::repeatedMember, parent.nameText(), name.text);
    }
    // A known class makes arrays and numbers here, and nothing else.
    const bool mayBeInPlace = parent.plan == nullptr || isArrayMember ||
                              !(isGenerated(declared) || MRLSchemaTypesFactory::isString(declared) != 0 ||
                                declared == MRLSchemaTypeI::eBase64Binary);
    if (isArrayMember && parent.getParamType() == MRLSchemaTypeI::eMRLUndocumentedFaultDetail) {
        // Services that write this form repeat the element for each message, without an array around.
        declared = MRLSchemaTypeI::eMRLMessage;
    } else if (void* const place = mayBeInPlace ? object.getChildObject(name.text, 1) : nullptr) {
        ElementEntry& entry = m_objStack.push(name, declared, place);
        entry.isArray = isArrayMember;
        entry.takesText = !isArrayMember;
        entry.isInPlace = true;
        return freshText();
    }
    const ObjectType type = xsiType != MRLSchemaTypeI::e_Unknown ? xsiType : declared;
    const ElementEntry& entry = pushNew(name, type);
    if (xsiType != MRLSchemaTypeI::e_Unknown) {
        checkType(name.text, entry.getParamValue(), type, declared);
    }
    if (isGenerated(type)) {
        object.setChildObject(name.text, entry.getParamValue(), type, nullptr);
    }
    freshText();
}

/// Whether the object has the member already, and notes that it has it from now on.
bool MRLSchemaTypeIContentHandler::isRepeated(ElementEntry& parent, const char* name, std::size_t member) {
    if (parent.plan == nullptr) {
        return parent.object()->getChildObject(name, 0) != nullptr;
    }
    const bool isSet = parent.seen[member]; // the object was made here, and has nothing but what was read
    parent.seen[member] = true;
    return isSet;
}

void MRLSchemaTypeIContentHandler::startItem(ElementEntry& parent, const ElementName& name,
                                             ObjectType xsiType) {
    if (static_cast<const MRLSchemaTypeArrayI*>(parent.object())->size() >= m_arrayItems) {
        mrl::detail::limitExceeded("items of an array", "arrayItems", m_arrayItems);
    }
    const bool isFaultDetail = parent.getParamType() == MRLSchemaTypeI::eMRLFaultDetailArray ||
                               parent.getParamType() == MRLSchemaTypeI::eMRLUndocumentedFaultDetailArray;
    if (isFaultDetail && xsiType != MRLSchemaTypeI::eMRLFaultDetail) {
        return startUndocumentedDetail(parent);
    }
    MRLSchemaTypeI& array = *parent.object();
    const ObjectType declared = array.getChildType(name.text);
    const ObjectType type = xsiType != MRLSchemaTypeI::e_Unknown ? xsiType : declared;
    const ElementEntry& entry = pushNew(name, type);
    checkItem(entry.getParamValue(), type, declared);
    if (isGenerated(type)) { // all other values are complete only at their end
        array.setChildObject(name.text, entry.getParamValue(), type, nullptr);
    }
    freshText();
}

/// An item that is not of the documented class makes the whole detail an undocumented one.
void MRLSchemaTypeIContentHandler::startUndocumentedDetail(ElementEntry& array) {
    HBL_ASSERT((m_objStack.size() == 1));
    if (array.getParamType() == MRLSchemaTypeI::eMRLFaultDetailArray) {
        auto* const details = adopted(*m_objectRegistry, hblNew<MRLUndocumentedFaultDetailArray>(HBL_HERE));
        const std::string name = array.nameText();
        m_objStack.replaceBack({name.c_str(), false}, MRLSchemaTypeI::eMRLUndocumentedFaultDetailArray,
                               details);
        m_objStack.back()->isArray = true;
    }
    HBL_ASSERT(m_objStack.front()->getParamType() == MRLSchemaTypeI::eMRLUndocumentedFaultDetailArray);
    auto* const detail = adopted(*m_objectRegistry, hblNew<MRLUndocumentedFaultDetail>(HBL_HERE));
    static_cast<MRLUndocumentedFaultDetailArray*>(m_objStack.back()->object())->push_back(detail);
    m_objStack.push({nullptr, true}, MRLSchemaTypeI::eMRLUndocumentedFaultDetail, detail);
}

/// A credential in the old form survives as a raw text, on a copy of the block that has room for it.
ElementEntry& MRLSchemaTypeIContentHandler::replaceByOldCredentialForm(ElementEntry& block) {
    const auto& old = *static_cast<const MRLZOR*>(block.object());
    auto* const copy =
        adopted(*m_objectRegistry, hblNew<MRLZOR_Unsupported>(HBL_HERE, old, *m_objectRegistry));
    m_credentialSeen = true;
    return m_objStack.replaceBack({"ZOR", true}, MRLSchemaTypeI::eMRLZOR_Unsupported, copy);
}

ElementEntry& MRLSchemaTypeIContentHandler::pushNew(const ElementName& name, ObjectType type) {
    void* const value = newValue(type);
    ElementEntry& entry = m_objStack.push(name, type, value);
    if (isGenerated(type)) {
        const KnownType& facts = known(type);
        entry.isArray = facts.isArray;
        entry.plan = facts.plan;
        entry.seen.reset();
        entry.takesText = !entry.isArray && (entry.plan == nullptr || entry.plan->hasOwnText());
    }
    return entry;
}

const MRLSchemaTypeIContentHandler::KnownType& MRLSchemaTypeIContentHandler::known(ObjectType type) {
    KnownType& known =
        m_knownTypes[static_cast<std::uint32_t>(type) % m_knownTypes.size()]; // a hash by itself
    if (known.type != type) {
        const mrl::detail::SchemaTypeRow* const row = mrl::detail::findSchemaType(type);
        known = {type, isArrayType(type), row != nullptr ? ClassPlan::of(*row) : nullptr};
    }
    return known;
}

void MRLSchemaTypeIContentHandler::freshText() {
    m_halfPair = 0;
    m_currentText.reset();
    m_hasText = true;
}

void MRLSchemaTypeIContentHandler::characters(const XMLCh* chars, XMLSize_t length) {
    if (m_skipDepth > 0) {
        return;
    }
    if (m_nilElementName) {
        throwFailure(HBL_HERE, CHARACTERS, msg::textInNil, *m_nilElementName);
    }
    if (m_contentId) {
        HBL_ASSERT(m_objStack.size() > 0);
        throwFailure(HBL_HERE, CHARACTERS, msg::textInReference, m_objStack.back()->nameText(), *m_contentId);
    }
    if (!m_hasText || length == 0 || (!m_objStack.empty() && !m_objStack.back()->takesText)) {
        return;
    }
    std::u16string_view text(chars, length);
    const auto append = [this](std::u16string_view piece) {
        const std::size_t before = m_currentText.pcount();
        const std::size_t plain = mrl::detail::asciiUnits(piece);
        const std::size_t others = plain == piece.size() ? 0 : mrl::detail::utf8Length(piece.substr(plain));
        m_currentText.reserve(plain + others);
        char* const out = m_currentText.str() + before;
        for (std::size_t i = 0; i < plain; ++i) {
            out[i] = static_cast<char>(piece[i]);
        }
        if (others != 0) {
            mrl::detail::toUtf8(piece.substr(plain), out + plain);
        }
        m_currentText.setLength(before + plain + others);
    };
    if (m_halfPair != 0) {
        const std::u16string pair{m_halfPair, text.front()};
        m_halfPair = 0;
        append(pair);
        text.remove_prefix(1);
    }
    if (!text.empty() && mrl::detail::isLeadUnit(text.back())) {
        m_halfPair = text.back();
        text.remove_suffix(1);
    }
    append(text);
}

void MRLSchemaTypeIContentHandler::endElement(const XMLCh* /*uri*/, const XMLCh* /*localname*/,
                                              const XMLCh* /*qname*/) {
    if (m_skipDepth > 0) {
        --m_skipDepth;
        return;
    }
    if (m_nilElementName) {
        m_nilElementName.reset();
        return;
    }
    HBL_ASSERT(m_objStack.size() > 0);
    ElementEntry& entry = *m_objStack.back();
    setCurrentCharacterData(entry);
    if (m_credentialSeen && entry.getParamType() == MRLSchemaTypeI::eMRLZOR_Unsupported &&
        std::strcmp(entry.nameText(), "ZOR") == 0) {
        m_credential = entry.object();
    }
    if (!isGenerated(entry.getParamType()) && !entry.isInPlace) {
        HBL_ASSERT(m_objStack.size() > 1);
        MRLSchemaTypeI* const parent = m_objStack.belowBack()->object();
        HBL_ASSERT(parent);
        setInParent(entry, *parent);
    }
    m_contentId.reset();
    m_objStack.pop();
}

void MRLSchemaTypeIContentHandler::startPrefixMapping(const XMLCh* prefix, const XMLCh* uri) {
    HBL_ASSERT(prefix);
    const std::u16string_view text(prefix);
    m_inScopePrefixesToNamespaceMappings.push_back({prefixKey(text), spaceOf(uri)});
    m_types.clear();
    ++m_prefixes;
}

void MRLSchemaTypeIContentHandler::endPrefixMapping(const XMLCh* /*prefix*/) {
    HBL_ASSERT(!m_inScopePrefixesToNamespaceMappings.empty());
    m_inScopePrefixesToNamespaceMappings.pop_back();
    m_types.clear();
    ++m_prefixes;
}
