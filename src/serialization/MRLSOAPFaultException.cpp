#include "serialization/MRLSOAPFaultException.h"

#include "Toolkit/MRLSOAPFault.h"

#include "HBLCore/HBLFailure.h"

MRLSOAPFaultException::MRLSOAPFaultException(MRLTavelHeader* header, MRLSOAPFault& fault,
                                             MRLObjectRegistryI* registry)
    : HBLException(eHBLSeverityError, 0)
    , m_tavelHeader(header)
    , m_soapFault(&fault)
    , m_objectRegistry(registry) {}

MRLSOAPFaultException::MRLSOAPFaultException(const MRLSOAPFaultException& other)
    : HBLException(other)
    , m_tavelHeader(other.m_tavelHeader)
    , m_soapFault(other.m_soapFault)
    , m_objectRegistry(other.m_objectRegistry) {}

MRLSOAPFaultException& MRLSOAPFaultException::operator=(const MRLSOAPFaultException& other) {
    if (this != &other) {
        HBLException::operator=(other);
        m_tavelHeader = other.m_tavelHeader;
        m_soapFault = other.m_soapFault;
        m_objectRegistry = other.m_objectRegistry;
    }
    return *this;
}

MRLSOAPFaultException::~MRLSOAPFaultException() = default;

MRLSOAPFaultException* MRLSOAPFaultException::clone() const {
    return hblNew<MRLSOAPFaultException>(HBL_HERE, *this);
}

void MRLSOAPFaultException::hurl(const HBLFileLocation& where, const char* function, const char* macro) {
    addBackTrace(where, function, macro);
    throw MRLSOAPFaultException(*this);
}

const char* MRLSOAPFaultException::getThrowableName() const {
    return "MRLSOAPFaultException";
}

void MRLSOAPFaultException::getSOAPFaultMessages(std::string& text) const {
    m_soapFault->getMessages(text);
}

const char* MRLSOAPFaultException::toString() {
    std::string messages;
    getSOAPFaultMessages(messages);
    std::string text;
    text += "<Exception Name=\"";
    text += getThrowableName();
    text += "\"><Error>" + getErrorCodeString() + "</Error><Severity>";
    text += getSeverityName(getSeverity());
    text += "</Severity><Messages>" + messages + "</Messages><TraceInfo>";
    for (const std::string& entry : getBackTrace()) {
        text += "<Trace Text=\"" + entry + " \"/>";
    }
    text += "</TraceInfo></Exception>";
    m_text = std::move(text);
    return m_text.c_str();
}
