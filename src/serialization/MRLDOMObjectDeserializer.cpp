#include "serialization/MRLDOMObjectDeserializer.h"

#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "serialization/MRLDOMToSAXAttributesImpl.h"
#include "serialization/MRLSchemaTypeIContentHandler.h"

#include "HBLCore/HBLDowncastSize.h"
#include "HBLCore/HBLFailure.h"

#include <algorithm>
#include <vector>

namespace {

/// The local name; of a node made without regard to namespaces, the whole name.
I18NString localNameOf(const HBLIDOM::Node& node) {
    I18NString name = node.getLocalName();
    return name.empty() ? node.getNodeName() : name;
}

/// The prefixes that an element declares, in the order of their names; the default namespace has none.
MRLPrefixMappings prefixesOf(const HBLIDOM::NamedNodeMap& attributes) {
    MRLPrefixMappings mappings;
    for (std::size_t i = 0; i < attributes.getLength(); ++i) {
        const HBLIDOM::Node attribute = attributes.item(i);
        const I18NString prefix = attribute.getPrefix();
        const I18NString localName = attribute.getLocalName();
        if (prefix.view() == u"xmlns") {
            mappings.push_back(
                {std::u16string(localName.view()), std::u16string(attribute.getNodeValue().view())});
        } else if (prefix.empty() && localName.view() == u"xmlns") {
            mappings.push_back({{}, std::u16string(attribute.getNodeValue().view())});
        }
    }
    std::sort(mappings.begin(), mappings.end(),
              [](const MRLPrefixMapping& a, const MRLPrefixMapping& b) { return a.prefix < b.prefix; });
    return mappings;
}

/// Plays what is below an element into a handler.
class Player {
public:
    explicit Player(MRLSchemaTypeIContentHandler& handler)
        : m_handler(handler) {}

    /// Text directly in `root` is passed over.
    void play(const HBLIDOM::Node& root) {
        for (HBLIDOM::Node node = root.getFirstChild(); node.isNull() == 0; node = next(node)) {
            switch (node.getNodeType()) {
            case HBLIDOM_Node::ELEMENT_NODE: start(node); break;
            case HBLIDOM_Node::TEXT_NODE:
                if (!m_open.empty()) {
                    characters(node.getNodeValue());
                }
                break;
            default: break; // counts for nothing
            }
        }
    }

private:
    struct OpenElement {
        HBLIDOM::Node node;
        MRLPrefixMappings prefixes;
    };

    void start(const HBLIDOM::Node& node) {
        HBL_ASSERT(node.getNodeType() == HBLIDOM_Node::ELEMENT_NODE);
        const HBLIDOM::NamedNodeMap attributes = node.getAttributes();
        m_open.push_back({node, prefixesOf(attributes)});
        for (const MRLPrefixMapping& mapping : m_open.back().prefixes) {
            m_handler.startPrefixMapping(mapping.prefix.c_str(), mapping.uri.c_str());
        }
        m_handler.startElement(node.getNamespaceURI().getExternalBuffer(),
                               localNameOf(node).getExternalBuffer(), node.getNodeName().getExternalBuffer(),
                               MRLDOMToSAXAttributesImpl(attributes));
    }

    void characters(const I18NString& text) {
        m_handler.characters(text.getExternalBuffer(), HBLDowncastSize::uint32(text.length()));
    }

    void end() {
        const HBLIDOM::Node& node = m_open.back().node;
        m_handler.endElement(node.getNamespaceURI().getExternalBuffer(),
                             localNameOf(node).getExternalBuffer(), node.getNodeName().getExternalBuffer());
        for (const MRLPrefixMapping& mapping : m_open.back().prefixes) {
            m_handler.endPrefixMapping(mapping.prefix.c_str());
        }
        m_open.pop_back();
    }

    /// What follows `node` in the order of the document; the elements that end on the way are ended.
    HBLIDOM::Node next(const HBLIDOM::Node& node) {
        if (!m_open.empty() && m_open.back().node == node) {
            HBLIDOM::Node child = node.getFirstChild();
            if (child.isNull() == 0) {
                return child;
            }
            end();
        }
        HBLIDOM::Node last = node;
        HBLIDOM::Node following = last.getNextSibling();
        while (following.isNull() != 0 && !m_open.empty()) {
            last = m_open.back().node;
            end();
            following = last.getNextSibling();
        }
        return following;
    }

    MRLSchemaTypeIContentHandler& m_handler;
    std::vector<OpenElement> m_open; // the innermost at the back
};

} // namespace

MRLDOMObjectDeserializerI::~MRLDOMObjectDeserializerI() = default;
MRLDOMObjectDeserializer::~MRLDOMObjectDeserializer() = default;

MRLSchemaTypeI* MRLDOMObjectDeserializer::deserialize(const HBLIDOM::Node& domIn,
                                                      MRLObjectRegistryI& registry, ObjectType expectedType) {
    HBL_ASSERT(!domIn.isNull());
    const HBLIDOM::NamedNodeMap attributes = domIn.getAttributes();
    MRLSchemaTypeIContentHandler handler(localNameOf(domIn).getExternalBuffer(),
                                         MRLDOMToSAXAttributesImpl(attributes), prefixesOf(attributes),
                                         expectedType, &registry, &m_converter);
    Player(handler).play(domIn);
    HBL_ASSERT_NAMED(MRLSchemaTypesFactory::isGeneratedType(handler.getObjectType()),
                     "Only generated classes can be deserialized.");
    return static_cast<MRLSchemaTypeI*>(handler.getObject());
}
