#pragma once

#include "Toolkit/MRLObjectRegistryI.h"
#include "serialization/MRLReaderLimits.h"
#include "serialization/MRLSOAPMessageIDeserializerI.h"

#include "HBLCore/I18NConverter.h"

class MRLMessageIContentHandler;

/// The reader of envelopes over the XML library's SAX2 parser. Keeps the registry of its last parse.
class MRL_EXPORT MRLSOAPMessageIDeserializer : public MRLSOAPMessageIDeserializerI {
public:
    MRLSOAPMessageIDeserializer();
    ~MRLSOAPMessageIDeserializer() override;

    void parse(PLQInputStream& stream, MRLPortTypeBinding& binding, MRLMessageI& message) override;
    void parse(PLQInputStream& stream, const std::vector<MRLPortTypeI*>& portTypes,
               HBLSmartPointer<MRLPortTypeBinding>& bindingOut) override;
    MRLTavelHeader* getTavelHeader() const override { return m_tavelHeader; }
    void setAttachmentHandler(MRL_AttachmentHandler* handler) override { m_attachmentHandler = handler; }

    /// Limits of this reader in place of the defaults.
    void setLimits(const MRLReaderLimits& limits) { m_limits = limits; }

private:
    void parse(PLQInputStream& stream, MRLMessageIContentHandler& handler);
    void run(PLQInputStream& stream, MRLMessageIContentHandler& handler);

    HBLSmartPointer<MRLObjectRegistryI> m_objectRegistry;
    MRLTavelHeader* m_tavelHeader = nullptr; // the registry's
    I18NConverter m_converter;
    MRL_AttachmentHandler* m_attachmentHandler = nullptr; // borrowed
    MRLReaderLimits m_limits;
};
