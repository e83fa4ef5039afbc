#include "serialization/MRLXMLChConstants.h"

#include "Toolkit/MRLNamespaces.h"

#include "HBLIDOM/detail/XmlLibrary.h"

#include <string_view>

namespace {

/// All the texts are ASCII.
std::u16string widened(std::string_view text) {
    return {text.begin(), text.end()};
}

} // namespace

const MRLXMLChConstants& MRLXMLChConstants::getInstance() {
    static const MRLXMLChConstants s_instance;
    return s_instance;
}

MRLXMLChConstants::MRLXMLChConstants()
    : m_soapEnvelopeNamespace(widened(mrl::ns::soapEnvelope))
    , m_soapEncodingNamespace(widened(mrl::ns::soapEncoding))
    , m_xmlSchemaNamespace(widened(mrl::ns::xmlSchema))
    , m_xmlSchemaInstanceNamespace(widened(mrl::ns::xmlSchemaInstance))
    , m_body(u"Body")
    , m_envelope(u"Envelope")
    , m_header(u"Header")
    , m_fault(u"Fault")
    , m_type(u"type")
    , m_nil(u"nil")
    , m_href(u"href")
    , m_arrayType(u"arrayType")
    , m_item(u"item")
    , m_detail(u"detail")
    , m_misunderstood(u"Misunderstood") {
    mrl::detail::startXmlLibrary();
}
