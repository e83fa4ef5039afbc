#include "serialization/MRLSchemaTypeIContentHandler.h"

#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLUndocumentedFaultDetail.h"
#include "Toolkit/MRLUndocumentedFaultDetailArray.h"
#include "Toolkit/MRLZOR_Unsupported.h"
#include "serialization/detail/Adopt.h"
#include "serialization/detail/Throw.h"
#include "serialization/detail/Utf8.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLUtCrc32.h"

#include <cstring>

using mrl::detail::adopted;
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
        startPrefixMapping(mapping.prefix.c_str(), mapping.uri.c_str());
    }
    const NarrowName name(*this, localname);
    ObjectType objType = getObjectType(name.c_str(), attributes);
    if (objType == MRLSchemaTypeI::e_Unknown) {
        objType = expectedType;
    }
    if (objType == MRLSchemaTypeI::e_Unknown) {
        m_skipDepth = 1;
        return;
    }
    if (isNil(attributes)) {
        m_nilElementName = name.c_str();
        m_objStack.push(name.c_str(), objType, nullptr);
        return;
    }
    if (const XMLCh* const contentId = contentIdOf(attributes)) {
        m_contentId = convert(contentId).get();
    }
    const ElementEntry& entry = pushNew(name.c_str(), objType);
    if (expectedType != MRLSchemaTypeI::e_Unknown) {
        checkType(name.c_str(), entry.getParamValue(), objType, expectedType);
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
    const NarrowName name(*this, localname);
    if (isNil(attributes)) { // nothing is pushed: the element counts as absent
        m_nilElementName = name.c_str();
        return;
    }
    if (!isGenerated(parent->getParamType())) {
        throwFailure(HBL_HERE, START_ELEMENT, msg::elementInSimpleValue, parent->getParamName());
    }
    HBL_ASSERT(parent->getParamValue());
    if (parent->getParamType() == MRLSchemaTypeI::eMRLZOR &&
        std::strcmp(name.c_str(), "ZORCredential") == 0) {
        parent = &replaceByOldCredentialForm(*parent);
    }
    const ObjectType declared = parent->object()->getChildType(name.c_str());
    if (declared == MRLSchemaTypeI::e_Unknown &&
        parent->object()->getObjectType() != MRLSchemaTypeI::e_Unknown) {
        ++m_skipDepth;
        return;
    }
    if (const XMLCh* const contentId = contentIdOf(attributes)) {
        m_contentId = convert(contentId).get();
    }
    const ObjectType xsiType = getObjectType(name.c_str(), attributes);
    if (parent->isArray) {
        startItem(*parent, name.c_str(), xsiType);
    } else {
        startMember(*parent, name.c_str(), declared, xsiType);
    }
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

void MRLSchemaTypeIContentHandler::startMember(ElementEntry& parent, const char* name, ObjectType declared,
                                               ObjectType xsiType) {
    MRLSchemaTypeI& object = *parent.object();
    const bool isArrayMember = isArrayType(declared);
    if (object.getChildObject(name, 0) != nullptr && !isArrayMember) {
        throwFailure(HBL_HERE, START_ELEMENT, msg::repeatedMember, parent.nameText(), name);
    }
    if (isArrayMember && parent.getParamType() == MRLSchemaTypeI::eMRLUndocumentedFaultDetail) {
        // Services that write this form repeat the element for each message, without an array around.
        declared = MRLSchemaTypeI::eMRLMessage;
    } else if (void* const place = object.getChildObject(name, 1)) {
        ElementEntry& entry = m_objStack.push(name, declared, place);
        entry.isArray = isArrayMember;
        entry.isInPlace = true;
        return freshText();
    }
    const ObjectType type = xsiType != MRLSchemaTypeI::e_Unknown ? xsiType : declared;
    const ElementEntry& entry = pushNew(name, type);
    if (xsiType != MRLSchemaTypeI::e_Unknown) {
        checkType(name, entry.getParamValue(), type, declared);
    }
    if (isGenerated(type)) {
        object.setChildObject(name, entry.getParamValue(), type, nullptr);
    }
    freshText();
}

void MRLSchemaTypeIContentHandler::startItem(ElementEntry& parent, const char* name, ObjectType xsiType) {
    const bool isFaultDetail = parent.getParamType() == MRLSchemaTypeI::eMRLFaultDetailArray ||
                               parent.getParamType() == MRLSchemaTypeI::eMRLUndocumentedFaultDetailArray;
    if (isFaultDetail && xsiType != MRLSchemaTypeI::eMRLFaultDetail) {
        return startUndocumentedDetail(parent);
    }
    MRLSchemaTypeI& array = *parent.object();
    const ObjectType declared = array.getChildType(name);
    const ObjectType type = xsiType != MRLSchemaTypeI::e_Unknown ? xsiType : declared;
    const ElementEntry& entry = pushNew(name, type);
    checkItem(entry.getParamValue(), type, declared);
    if (isGenerated(type)) { // all other values are complete only at their end
        array.setChildObject(name, entry.getParamValue(), type, nullptr);
    }
    freshText();
}

/// An item that is not of the documented class makes the whole detail an undocumented one.
void MRLSchemaTypeIContentHandler::startUndocumentedDetail(ElementEntry& array) {
    HBL_ASSERT((m_objStack.size() == 1));
    if (array.getParamType() == MRLSchemaTypeI::eMRLFaultDetailArray) {
        auto* const details = adopted(*m_objectRegistry, hblNew<MRLUndocumentedFaultDetailArray>(HBL_HERE));
        const std::string name = array.nameText();
        m_objStack.replaceBack(name.c_str(), MRLSchemaTypeI::eMRLUndocumentedFaultDetailArray, details);
        m_objStack.back()->isArray = true;
    }
    HBL_ASSERT(m_objStack.front()->getParamType() == MRLSchemaTypeI::eMRLUndocumentedFaultDetailArray);
    auto* const detail = adopted(*m_objectRegistry, hblNew<MRLUndocumentedFaultDetail>(HBL_HERE));
    static_cast<MRLUndocumentedFaultDetailArray*>(m_objStack.back()->object())->push_back(detail);
    m_objStack.push(nullptr, MRLSchemaTypeI::eMRLUndocumentedFaultDetail, detail);
}

/// A credential in the old form survives as a raw text, on a copy of the block that has room for it.
ElementEntry& MRLSchemaTypeIContentHandler::replaceByOldCredentialForm(ElementEntry& block) {
    const auto& old = *static_cast<const MRLZOR*>(block.object());
    auto* const copy =
        adopted(*m_objectRegistry, hblNew<MRLZOR_Unsupported>(HBL_HERE, old, *m_objectRegistry));
    m_credentialSeen = true;
    return m_objStack.replaceBack("ZOR", MRLSchemaTypeI::eMRLZOR_Unsupported, copy);
}

ElementEntry& MRLSchemaTypeIContentHandler::pushNew(const char* name, ObjectType type) {
    void* const value = newValue(type);
    ElementEntry& entry = m_objStack.push(name, type, value);
    entry.isArray = isGenerated(type) && isArrayType(type);
    return entry;
}

void MRLSchemaTypeIContentHandler::freshText() {
    m_halfPair = 0;
    if (m_currentText) {
        m_currentText->reset();
    } else {
        m_currentText.reset(hblNew<MRL_String>(HBL_HERE));
    }
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
    if (!m_currentText || length == 0) {
        return;
    }
    std::u16string_view text(chars, length);
    const auto append = [this](std::u16string_view piece) {
        const std::size_t before = m_currentText->pcount();
        const std::size_t added = mrl::detail::utf8Length(piece);
        m_currentText->reserve(added);
        mrl::detail::toUtf8(piece, m_currentText->str() + before);
        m_currentText->setLength(before + added);
    };
    if (m_halfPair != 0) {
        const char16_t pair[2] = {m_halfPair, text.front()};
        m_halfPair = 0;
        append({pair, 2});
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
}

void MRLSchemaTypeIContentHandler::endPrefixMapping(const XMLCh* /*prefix*/) {
    HBL_ASSERT(!m_inScopePrefixesToNamespaceMappings.empty());
    m_inScopePrefixesToNamespaceMappings.pop_back();
}
