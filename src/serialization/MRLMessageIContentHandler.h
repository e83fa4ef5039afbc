#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "serialization/MRLContentHandler.h"
#include "serialization/MRLPrefixMapping.h"
#include "serialization/MRLReaderLimits.h"

#include "HBLCore/HBLSmartPointer.h"

#include <cstdint>
#include <memory>
#include <vector>

class MRLMessageI;
class MRLMessageParam;
class MRLPortTypeBinding;
class MRLPortTypeI;
class MRLSOAPFault;
class MRLSchemaTypeIContentHandler;
class MRLTavelHeader;
class MRLZORExceptionContentHandler;
class MRL_AttachmentHandler;

/// Reads the levels of an envelope, and gives what lies below a parameter to the handler of its value.
/// Fills a given message, or finds port type and operation for a request that nobody expected. One
/// parse; the results belong to the registry, the binding is counted.
class MRLMessageIContentHandler : public MRLContentHandler {
public:
    /// Fills `message`; all three are borrowed, the binding shared.
    MRLMessageIContentHandler(MRLPortTypeBinding& binding, MRLMessageI& message,
                              const I18NConverter* converter);
    /// Finds the operation among `portTypes`, which are borrowed and must not be empty.
    MRLMessageIContentHandler(const std::vector<MRLPortTypeI*>& portTypes, const I18NConverter* converter);
    ~MRLMessageIContentHandler() override;

    /// The owner of all that is made; set before the parse, borrowed.
    void setObjectRegistry(MRLObjectRegistryI* registry) { m_objectRegistry = registry; }
    /// Takes the references to attachments; set before the parse, borrowed, null for none.
    void setAttachmentHandler(MRL_AttachmentHandler* handler) { m_attachmentHandler = handler; }
    /// The items that one array may have; set before the parse.
    void setArrayItems(std::uint32_t most) { m_arrayItems = most; }

    MRLTavelHeader* getTavelHeader() const { return m_tavelHeader; }
    /// The fault that the envelope carries; null when it carries none.
    MRLSOAPFault* getSOAPFault() const { return m_soapFault; }
    MRLPortTypeBinding* getBinding() const { return m_binding.get(); }

    void startDocument() override;
    void endDocument() override;
    void startElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname,
                      const xercesc::Attributes& attributes) override;
    void endElement(const XMLCh* uri, const XMLCh* localname, const XMLCh* qname) override;
    void characters(const XMLCh* chars, XMLSize_t length) override;
    void startPrefixMapping(const XMLCh* prefix, const XMLCh* uri) override;
    void endPrefixMapping(const XMLCh* prefix) override;

private:
    enum class State : std::int32_t { start = 0, header = 1, body = 2, faultDetail = 3, misunderstood = 4 };

    /// An event's names, for the short time of the event.
    struct Element {
        const XMLCh* uri;
        const XMLCh* localName;
        const XMLCh* qName;
        const xercesc::Attributes* attributes; // null at an end
    };

    // Starts, one function for each way that an element can be taken
    void expectEnvelope(const Element& element) const;
    void openSection(const Element& element);
    void openHeaderEntry(const Element& element);
    void openOperation(const Element& element);
    void openParameter(const Element& element);
    void startBelow(const Element& element);
    void startInSecurityException(const Element& element);

    // Ends
    void closeHeaderEntry();
    void closeParameter(const Element& element);
    void endBelow(const Element& element);

    bool isInSOAP(const Element& element, const std::u16string& name) const;
    bool isNestedDetail(const Element& element) const;
    void createInner(const Element& element, MRLSchemaTypeI::ObjectType expected);
    const char* parameterName(const char* elementName) const;
    MRLSchemaTypeI::ObjectType parameterType(const char* elementName) const;
    void bindOperation();

    std::int32_t m_depth = 0;
    std::int32_t m_misunderstoodDepth = 0;
    std::int32_t m_paramIndex = 0;
    MRLPrefixMappings m_inScopePrefixMappings;
    std::vector<std::unique_ptr<MRLMessageParam>> m_params; // without a given binding
    MRLMessageI* m_msgObj = nullptr;                        // borrowed
    State m_state = State::start;
    MRLObjectRegistryI* m_objectRegistry = nullptr; // borrowed
    MRLTavelHeader* m_tavelHeader = nullptr;        // the registry's
    MRLSOAPFault* m_soapFault = nullptr;            // the registry's
    HBLSmartPointer<MRLPortTypeBinding> m_binding;
    const std::vector<MRLPortTypeI*>* m_supportedPortTypes = nullptr; // borrowed
    const char* m_operationName = nullptr;                            // the registry's
    const char* m_operationNamespace = nullptr;                       // the registry's
    MRLPortTypeI* m_boundPortType = nullptr;                          // borrowed
    std::unique_ptr<MRLSchemaTypeIContentHandler> m_schemaTypeContentHandler;
    std::unique_ptr<MRLZORExceptionContentHandler> m_zorExceptionContentHander;
    MRL_AttachmentHandler* m_attachmentHandler = nullptr; // borrowed
    std::uint32_t m_arrayItems = MRLReaderLimits().arrayItems;
};
