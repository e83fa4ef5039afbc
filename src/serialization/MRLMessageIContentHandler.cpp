#include "serialization/MRLMessageIContentHandler.h"

#include "Toolkit/MRLMessageFactory.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLMessageParam.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLPortTypeI.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLZORException.h"
#include "serialization/MRLSchemaTypeIContentHandler.h"
#include "serialization/MRLXMLChConstants.h"
#include "serialization/MRLZORExceptionContentHandler.h"
#include "serialization/detail/Adopt.h"
#include "serialization/detail/Throw.h"

#include "HBLCore/HBLFailure.h"

#include <cstring>
#include <utility>

using mrl::detail::adopted;
using mrl::detail::throwFailure;

namespace {

const MRLXMLChConstants& names() {
    return MRLXMLChConstants::getInstance();
}

[[noreturn]] void elementExpected(const char* name) {
    throwFailure(HBL_HERE, "MRLMessageIContentHandler::startElement", msg::envelopeElementExpected, name);
}

} // namespace

MRLMessageIContentHandler::MRLMessageIContentHandler(MRLPortTypeBinding& binding, MRLMessageI& message,
                                                     const I18NConverter* converter)
    : MRLContentHandler(converter)
    , m_msgObj(&message)
    , m_binding(&binding) {}

MRLMessageIContentHandler::MRLMessageIContentHandler(const std::vector<MRLPortTypeI*>& portTypes,
                                                     const I18NConverter* converter)
    : MRLContentHandler(converter)
    , m_supportedPortTypes(&portTypes) {
    HBL_ASSERT(!m_supportedPortTypes->empty());
}

MRLMessageIContentHandler::~MRLMessageIContentHandler() = default;

void MRLMessageIContentHandler::startDocument() {
    HBL_ASSERT(m_objectRegistry);
}

void MRLMessageIContentHandler::endDocument() {
    HBL_ASSERT_NAMED(m_inScopePrefixMappings.empty(),
                     "There are namespace prefixes left on the mapping stack.");
    if (m_soapFault == nullptr) {
        if (!m_binding) {
            bindOperation();
        } else if (m_msgObj != nullptr) {
            m_msgObj->setTavelHeader(m_tavelHeader);
        }
    }
    m_params.clear();
}

void MRLMessageIContentHandler::bindOperation() {
    HBL_ASSERT(m_boundPortType);
    std::vector<MRLMessageParam*> params;
    for (const auto& param : m_params) {
        params.push_back(param.get());
    }
    m_binding = m_boundPortType->createPortTypeBinding(m_operationName, params);
    m_binding->getInputMessage().setTavelHeader(m_tavelHeader);
}

// --- starts ---------------------------------------------------------------------------------------

void MRLMessageIContentHandler::startElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname,
                                             const xercesc::Attributes& attributes) {
    if (m_state == State::misunderstood) { // the depth stands still, and all inside is passed over
        ++m_misunderstoodDepth;
        return;
    }
    ++m_depth;
    HBL_ASSERT(m_objectRegistry);
    const Element element{uri, localname, qname, &attributes};
    switch (m_depth) {
    case 1: return expectEnvelope(element);
    case 2: return openSection(element);
    case 3:
        switch (m_state) {
        case State::header: return openHeaderEntry(element);
        case State::body: return openOperation(element);
        default: return;
        }
    case 4: return m_state == State::body ? openParameter(element) : startBelow(element);
    default: return startBelow(element);
    }
}

void MRLMessageIContentHandler::expectEnvelope(const Element& element) const {
    if (!isInSOAP(element, names().m_envelope)) {
        elementExpected("Envelope");
    }
}

void MRLMessageIContentHandler::openSection(const Element& element) {
    if (isInSOAP(element, names().m_body)) {
        m_state = State::body;
    } else if (isInSOAP(element, names().m_header)) {
        m_state = State::header;
    } else {
        elementExpected("Body");
    }
}

void MRLMessageIContentHandler::openHeaderEntry(const Element& element) {
    if (names().m_misunderstood == element.localName) {
        m_state = State::misunderstood;
        m_misunderstoodDepth = 1;
    } else if (m_schemaTypeContentHandler == nullptr) {
        const bool isTavelHeader = std::u16string_view(element.localName) == u"tavelHeader";
        createInner(element, isTavelHeader ? MRLSchemaTypeI::eMRLTavelHeader : MRLSchemaTypeI::e_Unknown);
    }
}

void MRLMessageIContentHandler::openOperation(const Element& element) {
    m_paramIndex = 0;
    m_operationName = convertInto(*m_objectRegistry, element.localName);
    m_operationNamespace = convertInto(*m_objectRegistry, element.uri);
    if (isInSOAP(element, names().m_fault)) {
        m_soapFault = adopted(*m_objectRegistry, hblNew<MRLSOAPFault>(HBL_HERE));
        return;
    }
    if (m_binding) {
        return;
    }
    for (MRLPortTypeI* const portType : *m_supportedPortTypes) {
        if (std::strcmp(portType->getBoundNamespace(), m_operationNamespace) == 0) {
            m_boundPortType = portType;
            return;
        }
    }
    throwFailure(HBL_HERE, "MRLMessageIContentHandler::characters", msg::unknownNamespace, m_operationName,
                 m_operationNamespace);
}

void MRLMessageIContentHandler::openParameter(const Element& element) {
    ++m_paramIndex;
    const NarrowName name(*this, element.localName);
    const MRLSchemaTypeI::ObjectType expected = parameterType(name.c_str());
    HBL_ASSERT(m_schemaTypeContentHandler == NULL);
    createInner(element, expected);
}

void MRLMessageIContentHandler::startBelow(const Element& element) {
    if (m_state == State::faultDetail) {
        return startInSecurityException(element);
    }
    if (isNestedDetail(element)) {
        m_state = State::faultDetail;
        return;
    }
    HBL_ASSERT(m_schemaTypeContentHandler);
    m_schemaTypeContentHandler->startElement(element.uri, element.localName, element.qName,
                                             *element.attributes);
}

/// The first element below the inner "detail" is the security exception.
void MRLMessageIContentHandler::startInSecurityException(const Element& element) {
    if (m_zorExceptionContentHander == nullptr) {
        if (isNestedDetail(element)) {
            return;
        }
        HBL_ASSERT(m_soapFault);
        m_soapFault->setZORException(adopted(*m_objectRegistry, hblNew<MRLZORException>(HBL_HERE)));
        m_zorExceptionContentHander.reset(hblNew<MRLZORExceptionContentHandler>(
            HBL_HERE, m_soapFault, m_converter, m_objectRegistry, m_inScopePrefixMappings));
        m_zorExceptionContentHander->setArrayItems(m_arrayItems);
    }
    m_zorExceptionContentHander->startElement(element.uri, element.localName, element.qName,
                                              *element.attributes);
}

// --- ends -----------------------------------------------------------------------------------------

void MRLMessageIContentHandler::endElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname) {
    if (m_state == State::misunderstood) {
        if (--m_misunderstoodDepth != 0) {
            return;
        }
        m_state = State::header;
        --m_depth;
        return;
    }
    const Element element{uri, localname, qname, nullptr};
    switch (m_depth) {
    case 1:
    case 2: break;
    case 3:
        if (m_state == State::header) {
            closeHeaderEntry();
        }
        break;
    case 4:
        if (m_state == State::body) {
            closeParameter(element);
        } else {
            endBelow(element);
        }
        break;
    default: endBelow(element); break;
    }
    --m_depth;
}

void MRLMessageIContentHandler::closeHeaderEntry() {
    HBL_ASSERT(m_schemaTypeContentHandler);
    if (m_schemaTypeContentHandler->getObjectType() == MRLSchemaTypeI::eMRLTavelHeader) {
        m_tavelHeader = static_cast<MRLTavelHeader*>(
            static_cast<MRLSchemaTypeI*>(m_schemaTypeContentHandler->getObject()));
    }
    m_schemaTypeContentHandler.reset();
}

void MRLMessageIContentHandler::closeParameter(const Element& element) {
    HBL_ASSERT(m_schemaTypeContentHandler);
    void* const object = m_schemaTypeContentHandler->getObject();
    const MRLSchemaTypeI::ObjectType type = m_schemaTypeContentHandler->getObjectType();
    if (m_soapFault != nullptr) {
        const NarrowName name(*this, element.localName);
        if (object != nullptr) // a part that is nil is absent: what the fault says matters more
            m_soapFault->setChildObject(name.c_str(), object, type, nullptr);
    } else if (!m_binding) {
        const char* const name = convertInto(*m_objectRegistry, element.localName);
        std::unique_ptr<MRLMessageParam> param(hblNew<MRLMessageParam>(HBL_HERE, name, type, object));
        m_params.push_back(std::move(param));
    } else {
        HBL_ASSERT_NAMED(m_msgObj, "Inconsistent object state.");
        const NarrowName name(*this, element.localName);
        m_msgObj->setParameter(parameterName(name.c_str()), object, type);
    }
    m_schemaTypeContentHandler.reset();
}

void MRLMessageIContentHandler::endBelow(const Element& element) {
    if (m_state != State::faultDetail) {
        HBL_ASSERT(m_schemaTypeContentHandler);
        m_schemaTypeContentHandler->endElement(element.uri, element.localName, element.qName);
        return;
    }
    HBL_ASSERT(m_zorExceptionContentHander);
    if (m_zorExceptionContentHander->getDepth() == 0) { // the inner "detail" itself ends
        m_state = State::body;
        m_zorExceptionContentHander.reset();
        return;
    }
    m_zorExceptionContentHander->endElement(element.uri, element.localName, element.qName);
}

// --- the rest -------------------------------------------------------------------------------------

void MRLMessageIContentHandler::characters(const XMLCh* chars, XMLSize_t length) {
    if (m_state == State::misunderstood) {
        return;
    }
    if (m_zorExceptionContentHander != nullptr) {
        m_zorExceptionContentHander->characters(chars, length);
    } else if (m_schemaTypeContentHandler != nullptr) {
        m_schemaTypeContentHandler->characters(chars, length);
    }
}

void MRLMessageIContentHandler::startPrefixMapping(const XMLCh* prefix, const XMLCh* uri) {
    HBL_ASSERT(prefix);
    m_inScopePrefixMappings.push_back({prefix, uri == nullptr ? u"" : uri});
    if (m_zorExceptionContentHander != nullptr) {
        m_zorExceptionContentHander->startPrefixMapping(prefix, uri);
    }
    if (m_schemaTypeContentHandler != nullptr) {
        m_schemaTypeContentHandler->startPrefixMapping(prefix, uri);
    }
}

void MRLMessageIContentHandler::endPrefixMapping(const XMLCh* prefix) {
    HBL_ASSERT(!m_inScopePrefixMappings.empty());
    m_inScopePrefixMappings.pop_back();
    if (m_zorExceptionContentHander != nullptr) {
        m_zorExceptionContentHander->endPrefixMapping(prefix);
    }
    if (m_schemaTypeContentHandler != nullptr) {
        m_schemaTypeContentHandler->endPrefixMapping(prefix);
    }
}

bool MRLMessageIContentHandler::isInSOAP(const Element& element, const std::u16string& name) const {
    return name == element.localName && names().m_soapEnvelopeNamespace == element.uri;
}

/// A "detail" somewhere inside a fault's own detail.
bool MRLMessageIContentHandler::isNestedDetail(const Element& element) const {
    return m_operationName != nullptr && std::strcmp(m_operationName, "Fault") == 0 &&
           names().m_detail == element.localName;
}

void MRLMessageIContentHandler::createInner(const Element& element, MRLSchemaTypeI::ObjectType expected) {
    m_schemaTypeContentHandler.reset(hblNew<MRLSchemaTypeIContentHandler>(
        HBL_HERE, element.localName, *element.attributes, m_inScopePrefixMappings, expected, m_objectRegistry,
        m_converter));
    m_schemaTypeContentHandler->setAttachmentHandler(m_attachmentHandler);
    m_schemaTypeContentHandler->setKeepsNames();
    m_schemaTypeContentHandler->setArrayItems(m_arrayItems);
}

/// The first element is bound by its position and may carry any name; the others by their names.
const char* MRLMessageIContentHandler::parameterName(const char* elementName) const {
    if (m_paramIndex != 1) {
        return elementName;
    }
    const MRLMessageFactory::MRLParamDescriptor* const declared =
        MRLMessageFactory::getInstance().getParameterTypes(m_msgObj->getMessageType());
    return declared != nullptr && declared->paramName != nullptr ? declared->paramName : elementName;
}

MRLSchemaTypeI::ObjectType MRLMessageIContentHandler::parameterType(const char* elementName) const {
    if (m_soapFault != nullptr) {
        return m_soapFault->getChildType(elementName);
    }
    if (m_boundPortType != nullptr) {
        return m_boundPortType->resolveOperationParamType(m_operationName, elementName);
    }
    HBL_ASSERT(m_msgObj);
    return m_msgObj->getParameterType(parameterName(elementName));
}
