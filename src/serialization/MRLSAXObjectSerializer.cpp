#include "serialization/MRLSAXObjectSerializer.h"

#include "serialization/MRLSAXEventSinkI.h"
#include "serialization/detail/ObjectWalk.h"

#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLFailure.h"

#include <string>
#include <vector>

using mrl::detail::ElementAttribute;
using mrl::detail::ElementName;

namespace {

/// Hands the elements of a walk to a sink.
class SinkEvents final : public mrl::detail::ElementEvents {
public:
    explicit SinkEvents(MRLSAXEventSinkI* saxParser)
        : m_saxParser(saxParser) {}

    void start(const ElementName& name, const std::vector<ElementAttribute>& attributes) override {
        HBL_ASSERT(m_saxParser);
        std::vector<const char*> pairs;
        pairs.reserve(2 * attributes.size() + 1);
        for (const ElementAttribute& attribute : attributes) {
            pairs.push_back(attribute.name);
            pairs.push_back(attribute.value.c_str());
        }
        pairs.push_back(nullptr);
        m_saxParser->startElement(name.qualified().c_str(), pairs.data());
    }

    void characters(std::string_view text) override {
        HBL_ASSERT(m_saxParser);
        m_saxParser->characters(text.data(), HBLDowncastSize::int32(text.size()));
    }

    void end(const ElementName& name) override {
        HBL_ASSERT(m_saxParser);
        m_saxParser->endElement(name.qualified().c_str());
    }

private:
    MRLSAXEventSinkI* const m_saxParser; // borrowed
};

} // namespace

MRLSAXEventSinkI::~MRLSAXEventSinkI() = default;
MRLSAXObjectSerializerI::~MRLSAXObjectSerializerI() = default;
MRLSAXObjectSerializer::~MRLSAXObjectSerializer() = default;

void MRLSAXObjectSerializer::serialize(void* object, ObjectType objectType, const char* name,
                                       MRLSAXEventSinkI* saxParser) {
    SinkEvents events(saxParser);
    mrl::detail::ObjectWalk walk(
        events, {.nilForNull = m_writeNulls != 0, .nullArrays = false, .emptyArrays = false});
    walk.run(object, objectType, name);
}
