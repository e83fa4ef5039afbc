#include "serialization/MRLZORExceptionContentHandler.h"

#include "Toolkit/MRLSOAPFault.h"
#include "serialization/MRLSchemaTypeIContentHandler.h"

#include "HBLCore/HBLFailure.h"

MRLZORExceptionContentHandler::MRLZORExceptionContentHandler(MRLSOAPFault* fault,
                                                             const I18NConverter* converter,
                                                             MRLObjectRegistryI* objectRegistry,
                                                             const MRLPrefixMappings& prefixMappings)
    : MRLContentHandler(converter)
    , m_soapFault(fault)
    , m_objectRegistry(objectRegistry)
    , m_inScopePrefixMappings(prefixMappings) {}

MRLZORExceptionContentHandler::~MRLZORExceptionContentHandler() = default;

void MRLZORExceptionContentHandler::startDocument() {
    HBL_ASSERT(m_objectRegistry);
}

void MRLZORExceptionContentHandler::endDocument() {}

void MRLZORExceptionContentHandler::startElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname,
                                                 const xercesc::Attributes& attributes) {
    if (++m_depth > 1) {
        HBL_ASSERT(m_schemaTypeContentHandler);
        m_schemaTypeContentHandler->startElement(uri, localname, qname, attributes);
        return;
    }
    HBL_ASSERT(m_soapFault && m_soapFault->getZORException());
    HBL_ASSERT(m_schemaTypeContentHandler == NULL);
    m_schemaTypeContentHandler.reset(hblNew<MRLSchemaTypeIContentHandler>(
        HBL_HERE, localname, attributes, m_inScopePrefixMappings, MRLSchemaTypeI::eMRLZORException,
        m_objectRegistry, m_converter));
    m_schemaTypeContentHandler->setArrayItems(m_arrayItems);
}

void MRLZORExceptionContentHandler::endElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname) {
    HBL_ASSERT(m_depth > 0);
    if (m_depth > 1) {
        HBL_ASSERT(m_schemaTypeContentHandler);
        m_schemaTypeContentHandler->endElement(uri, localname, qname);
    } else if (m_soapFault != nullptr && m_schemaTypeContentHandler != nullptr) {
        const NarrowName name(*this, localname);
        void* const exception = m_schemaTypeContentHandler->getObject();
        m_soapFault->setChildObject(name.c_str(), exception, m_schemaTypeContentHandler->getObjectType(),
                                    nullptr);
        m_schemaTypeContentHandler.reset();
    }
    --m_depth;
}

void MRLZORExceptionContentHandler::characters(const XMLCh* chars, XMLSize_t length) {
    if (m_schemaTypeContentHandler != nullptr) {
        m_schemaTypeContentHandler->characters(chars, length);
    }
}

void MRLZORExceptionContentHandler::startPrefixMapping(const XMLCh* prefix, const XMLCh* uri) {
    HBL_ASSERT(prefix);
    m_inScopePrefixMappings.push_back({prefix, uri == nullptr ? u"" : uri});
    if (m_schemaTypeContentHandler != nullptr) {
        m_schemaTypeContentHandler->startPrefixMapping(prefix, uri);
    }
}

void MRLZORExceptionContentHandler::endPrefixMapping(const XMLCh* prefix) {
    HBL_ASSERT(!m_inScopePrefixMappings.empty());
    m_inScopePrefixMappings.pop_back();
    if (m_schemaTypeContentHandler != nullptr) {
        m_schemaTypeContentHandler->endPrefixMapping(prefix);
    }
}
