#include "serialization/MRLDOMObjectSerializer.h"

#include "Toolkit/MRLNamespaces.h"
#include "serialization/detail/ObjectWalk.h"

#include "HBLCore/HBLFailure.h"

#include <string>

using mrl::detail::ElementAttribute;
using mrl::detail::ElementName;

namespace {

/// Builds the elements of a walk.
class DomEvents final : public mrl::detail::ElementEvents {
public:
    explicit DomEvents(HBLIDOM::Document& ownerDoc)
        : m_ownerDoc(ownerDoc) {}

    /// The outermost element; null when there was none.
    const HBLIDOM::Element& root() const { return m_root; }

    void start(const ElementName& name, const std::vector<ElementAttribute>& attributes) override {
        HBLIDOM::Element element =
            m_ownerDoc.createElementNS(name.isInBus ? mrl::ns::bus : "", name.qualified());
        for (const ElementAttribute& attribute : attributes) {
            element.setAttributeNS(attribute.namespaceUri, attribute.name, attribute.value);
        }
        if (m_root.isNull() != 0) {
            m_root = element;
        } else {
            m_current.appendChild(element);
        }
        m_current = element;
    }

    void characters(std::string_view text) override {
        m_current.appendChild(m_ownerDoc.createTextNode(text));
    }

    void end(const ElementName& /*name*/) override { m_current = m_current.getParentNode(); }

private:
    HBLIDOM::Document& m_ownerDoc;
    HBLIDOM::Element m_root;
    HBLIDOM::Node m_current; // the innermost open element
};

} // namespace

MRLDOMObjectSerializerI::~MRLDOMObjectSerializerI() = default;
MRLDOMObjectSerializer::~MRLDOMObjectSerializer() = default;

HBLIDOM::Element MRLDOMObjectSerializer::serialize(void* object, ObjectType objectType, const char* name,
                                                   HBLIDOM::Document& ownerDoc) {
    HBL_ASSERT(!ownerDoc.isNull());
    DomEvents events(ownerDoc);
    mrl::detail::ObjectWalk walk(events, {.nilForNull = false, .nullArrays = true, .emptyArrays = true});
    walk.run(object, objectType, name);
    return events.root();
}
