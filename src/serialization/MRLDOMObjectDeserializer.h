#pragma once

#include "serialization/MRLDOMObjectDeserializerI.h"

#include "HBLCore/I18NConverter.h"

/// Plays the events of a DOM element into the reader of messages, so that both read alike. The depth of
/// the document costs memory and never the thread's stack. Instances share nothing.
class MRL_EXPORT MRLDOMObjectDeserializer : public MRLDOMObjectDeserializerI {
public:
    MRLDOMObjectDeserializer() = default;
    ~MRLDOMObjectDeserializer() override;

    MRLSchemaTypeI* deserialize(const HBLIDOM::Node& domIn, MRLObjectRegistryI& registry,
                                ObjectType expectedType = MRLSchemaTypeI::e_Unknown) override;

private:
    I18NConverter m_converter;
};
