#pragma once

#include <string>

/// The names that readers compare with, as the parser has them. Made once, at the first use, which
/// also starts the XML library; read-only and thread-safe from then on.
class MRLXMLChConstants {
public:
    static const MRLXMLChConstants& getInstance();

    MRLXMLChConstants(const MRLXMLChConstants&) = delete;
    MRLXMLChConstants& operator=(const MRLXMLChConstants&) = delete;

    const std::u16string m_soapEnvelopeNamespace;
    const std::u16string m_soapEncodingNamespace;
    const std::u16string m_xmlSchemaNamespace;
    const std::u16string m_xmlSchemaInstanceNamespace;
    const std::u16string m_body;
    const std::u16string m_envelope;
    const std::u16string m_header;
    const std::u16string m_fault;
    const std::u16string m_type;
    const std::u16string m_nil;
    const std::u16string m_href;
    const std::u16string m_arrayType;
    const std::u16string m_item;
    const std::u16string m_detail;
    const std::u16string m_misunderstood;

private:
    MRLXMLChConstants();
};
