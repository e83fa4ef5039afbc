#pragma once

#include "serialization/MRLContentHandler.h"
#include "serialization/MRLPrefixMapping.h"
#include "serialization/MRLReaderLimits.h"

#include <cstdint>
#include <memory>

class MRLSOAPFault;
class MRLSchemaTypeIContentHandler;

/// Reads the security exception that stands inside a fault's message, and stores it in the fault.
/// Sees the exception's own element at depth 1.
class MRLZORExceptionContentHandler : public MRLContentHandler {
public:
    /// All pointers are borrowed; the mappings are copied.
    MRLZORExceptionContentHandler(MRLSOAPFault* fault, const I18NConverter* converter,
                                  MRLObjectRegistryI* objectRegistry,
                                  const MRLPrefixMappings& prefixMappings);
    ~MRLZORExceptionContentHandler() override;

    /// The number of elements open; 0 when the exception has ended.
    std::int32_t getDepth() const { return m_depth; }

    /// The items that one array may have; set before the first element.
    void setArrayItems(std::uint32_t most) { m_arrayItems = most; }

    void startDocument() override;
    void endDocument() override;
    void startElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname,
                      const xercesc::Attributes& attributes) override;
    void endElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname) override;
    void characters(const XMLCh* chars, XMLSize_t length) override;
    void startPrefixMapping(const XMLCh* prefix, const XMLCh* uri) override;
    void endPrefixMapping(const XMLCh* prefix) override;

private:
    std::int32_t m_depth = 0;
    std::uint32_t m_arrayItems = MRLReaderLimits().arrayItems;
    MRLSOAPFault* m_soapFault;            // borrowed
    MRLObjectRegistryI* m_objectRegistry; // borrowed
    MRLPrefixMappings m_inScopePrefixMappings;
    std::unique_ptr<MRLSchemaTypeIContentHandler> m_schemaTypeContentHandler;
};
