// The anonymous logon, and what stands in the headers of the bus.

#include "Common/MRLException.h"
#include "Common/MRLExceptionMessage.h"
#include "I18NRes/MRLI18NRes.h"
#include "Session/MRLHelper.h"
#include "Session/MRLSendSoap.h"
#include "Toolkit/MRLDispatcherTransportVar.h"
#include "Toolkit/MRLDispatcherTransportVarArray.h"
#include "Toolkit/MRLFormFieldVar.h"
#include "Toolkit/MRLFormFieldVarArray.h"
#include "Toolkit/MRLHdrSession.h"
#include "Toolkit/MRLNamespaces.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "serialization/MRLDOMObjectDeserializerFactory.h"
#include "serialization/MRLDOMObjectDeserializerI.h"

#include "HBLCore/HBLMessageString.h"
#include "HBLIDOM/HBLIDOM.h"
#include "ZORCrypto/HBLZORCookie.h"

#include <cstring>
#include <memory>
#include <string>

namespace {

constexpr const char* XMLNS_NAMESPACE = "http://www.w3.org/2000/xmlns/";

/// The whole request: the action alone, neither user nor password.
std::string logonEnvelope() {
    using namespace mrl::ns;
    return std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                       "<SOAP-ENV:Envelope xmlns:SOAP-ENV=\"") +
           soapEnvelope + "\" xmlns:SOAP-ENC=\"" + soapEncoding + "\" xmlns:bus=\"" +
           MRLI18NRes::getChar(MRLI18NRes::eBusNamespace) + "\" xmlns:xsi=\"" + xmlSchemaInstance +
           "\" xmlns:xsd=\"" + xmlSchema + "\" SOAP-ENV:encodingStyle=\"" + soapEncoding +
           "\"><SOAP-ENV:Header><bus:tavelHeader xsi:type=\"bus:tavelHeader\"><bus:ZOR xsi:type=\"bus:ZOR\">"
           "<bus:action xsi:type=\"xsd:string\">logon</bus:action></bus:ZOR></bus:tavelHeader>"
           "</SOAP-ENV:Header><SOAP-ENV:Body></SOAP-ENV:Body></SOAP-ENV:Envelope>";
}

/// Sends the logon and parses the reply.
HBLIDOM_Document logon(const char* dispatcherUri) {
    I18NString target(dispatcherUri);
    if (target.empty()) {
        MRLHelper::getDispatcherURI(target, 0);
    }
    const std::string action =
        std::string(MRLI18NRes::getChar(MRLI18NRes::eTavelNamespace)) + "#contentManagerService";
    std::string response;
    std::string attachment;
    MRLSendSoap::send(target.c_str(), logonEnvelope().c_str(), action.c_str(), response, attachment);
    HBLIDOM_Document reply;
    MRLHelper::parseXML(response.c_str(), response.size(), reply);
    return reply;
}

/// The id in a reply of names and values; `passport` stays when the name has no value beside it.
void takePassportValue(const HBLIDOM_Document& reply, std::string& passport) {
    const HBLIDOM_Element zorPassportEle = HBLIDOM_Helper::findChildElementWithText(
        reply, "name", MRLI18NRes::getString(MRLI18NRes::eZorPassport));
    HBL_ASSERT_NAMED(!zorPassportEle.isNull(), "No zor_passport element was returned.");
    const I18NString& value = MRLI18NRes::getString(MRLI18NRes::eValue);
    for (HBLIDOM_Node node = zorPassportEle.getParentNode().getFirstChild(); node.isNull() == 0;
         node = node.getNextSibling()) {
        if (node.getNodeType() == HBLIDOM_Node::ELEMENT_NODE &&
            (node.getNodeName() == value || HBLIDOM_Helper::matchLocalName(node, value) != 0)) {
            passport = HBLIDOM_Helper::getElementText(node).toUtf8();
            return;
        }
    }
}

/// The id in a typed reply.
void takePassportId(const HBLIDOM_Document& reply, std::string& passport) {
    const HBLIDOM_Element zorPassportElem = HBLIDOM_Helper::findFirstElement(reply, "ZORPassport");
    HBL_ASSERT_NAMED(!zorPassportElem.isNull(), "No ZORPassport element was returned.");
    const HBLIDOM_Element idElem = HBLIDOM_Helper::findFirstElement(zorPassportElem, "id");
    HBL_ASSERT_NAMED(!idElem.isNull(), "No id element was returned in the ZORPassort element.");
    const std::string idElemText = HBLIDOM_Helper::getElementText(idElem).toUtf8();
    HBL_ASSERT_NAMED(!idElemText.empty(), "An empty id element was returned in the ZORPassort element.");
    passport = idElemText;
}

/// Declares on `header` what the elements around it declare, so that it can be read by itself.
void takeDeclarations(HBLIDOM_Element& header) {
    for (HBLIDOM_Node around = header.getParentNode(); around.getNodeType() == HBLIDOM_Node::ELEMENT_NODE;
         around = around.getParentNode()) {
        const HBLIDOM_NamedNodeMap attributes = around.getAttributes();
        for (std::size_t i = 0; i < attributes.getLength(); ++i) {
            const HBLIDOM_Node attribute = attributes.item(i);
            if (attribute.getPrefix() == "xmlns" && attribute.getNodeValue() != mrl::ns::soapEnvelope &&
                header.getAttribute(attribute.getNodeName()).empty()) {
                header.setAttributeNS(XMLNS_NAMESPACE, attribute.getNodeName(), attribute.getNodeValue());
            }
        }
    }
}

/// The object of an element, owned by `registry`.
MRLSchemaTypeI& deserialized(const HBLIDOM_Element& element, MRLObjectRegistryI& registry) {
    auto& factory = MRLDOMObjectDeserializerFactory::getInstance();
    const auto giveBack = [&](MRLDOMObjectDeserializerI* held) { factory.destroy(held); };
    const std::unique_ptr<MRLDOMObjectDeserializerI, decltype(giveBack)> deserializer(factory.create(),
                                                                                      giveBack);
    MRLSchemaTypeI* const pDeserializedObject = deserializer->deserialize(element, registry);
    HBL_ASSERT(pDeserializedObject != NULL);
    return *pDeserializedObject;
}

template <class T>
T* ofType(MRLSchemaTypeI& object, MRLSchemaTypeI::ObjectType type) {
    return object.getObjectType() == type ? static_cast<T*>(&object) : nullptr;
}

/// The value of the first item of that name that has both.
template <class Array>
const char* valueOf(const Array& items, const char* name) {
    for (const auto* const item : items) {
        if (item != nullptr && item->getName() != nullptr && item->getValue() != nullptr &&
            std::strcmp(item->getName(), name) == 0) {
            return item->getValue();
        }
    }
    return nullptr;
}

} // namespace

void MRLHelper::logonAsAnonymous(std::string& passport, int fromPassportValue, const char* dispatcherUri) {
    hblRethrowing("MRLHelper::logonAsAnonymous", [&] {
        const HBLIDOM_Document reply = logon(dispatcherUri);
        if (fromPassportValue != 0) {
            takePassportValue(reply, passport);
        } else {
            takePassportId(reply, passport);
        }
    });
}

MRLTavelHeader* MRLHelper::getMRLTavelHeaderForAnonymous(MRLObjectRegistryI* registry,
                                                         const char* dispatcherUri) {
    return hblRethrowing("MRLHelper::getMRLTavelHeaderForAnonymous", [&] {
        HBL_ASSERT(registry);
        const HBLIDOM_Document reply = logon(dispatcherUri);
        HBLIDOM_Element tavelHeaderEle = HBLIDOM_Helper::findFirstElementNS(
            reply, MRLI18NRes::getString(MRLI18NRes::eBusNamespace), "tavelHeader");
        HBL_ASSERT_NAMED(!tavelHeaderEle.isNull(), "No tavelHeader element was returned.");
        takeDeclarations(tavelHeaderEle);
        return ofType<MRLTavelHeader>(deserialized(tavelHeaderEle, *registry),
                                      MRLSchemaTypeI::eMRLTavelHeader);
    });
}

MRLTavelHeader* MRLHelper::getMRLTavelHeaderFromString(const char* tavel_header,
                                                       MRLObjectRegistryI* objectRegistry) {
    constexpr const char* FUNCTION = "MRLHelper::getMRLTavelHeaderFromString";
    HBL_ASSERT(tavel_header != NULL);
    HBL_ASSERT(objectRegistry != NULL);
    const std::size_t tavel_header_size = std::strlen(tavel_header);
    HBL_ASSERT(tavel_header_size > 0);
    return hblRethrowing(FUNCTION, [&] {
        MRLSchemaTypeI* object = nullptr;
        try {
            HBLIDOM_Document document = HBLIDOM_DOMImplementation::getInstance().createDocument();
            HBLIDOM_Parser().parse(tavel_header, tavel_header_size, document); // what follows tells
            object = &deserialized(document.getDocumentElement(), *objectRegistry);
        } catch (const HBLIDOM_DOMException& e) {
            HBL_THROW(MRLException(0)
                          << (MRLExceptionMessage(msg::malformedXmlDocument) << ""
                                                                             << "")
                          << HBLMessageString("DOM returned error code: " + std::to_string(e.getErrorCode())),
                      FUNCTION);
        }
        return ofType<MRLTavelHeader>(*object, MRLSchemaTypeI::eMRLTavelHeader);
    });
}

MRLZOR* MRLHelper::getMRLZORFromZORCookie(const char* zor_cookie, MRLObjectRegistryI* objectRegistry) {
    HBL_ASSERT(zor_cookie != NULL);
    HBL_ASSERT(objectRegistry != NULL);
    return hblRethrowing("MRLHelper::getMRLZORFromZORCookie", [&] {
        const std::string zor_cookie_str = zor_cookie;
        HBL_ASSERT(!zor_cookie_str.empty());
        std::string xml;
        HBLZORCookie(zor_cookie_str.c_str()).asXMLString(xml);
        HBLIDOM_Document document;
        parseXML(xml.c_str(), xml.size(), document);
        return ofType<MRLZOR>(deserialized(document.getDocumentElement(), *objectRegistry),
                              MRLSchemaTypeI::eMRLZOR);
    });
}

const char* MRLHelper::getPassport(const MRLTavelHeader* header) {
    const MRLZOR* const zor = header == nullptr ? nullptr : header->getZOR();
    const MRLZORPassport* const passport = zor == nullptr ? nullptr : zor->getZORPassport();
    return passport == nullptr ? nullptr : passport->getId();
}

const char* MRLHelper::getFormFieldVar(const MRLTavelHeader* header, const char* formFieldVarName) {
    HBL_ASSERT(formFieldVarName);
    const MRLHdrSession* const session = header == nullptr ? nullptr : header->getHdrSession();
    return session == nullptr ? nullptr : valueOf(session->getFormFieldVars(), formFieldVarName);
}

const char* MRLHelper::getDispatcherTransportVar(const MRLTavelHeader* header,
                                                 const char* dispatcherTransportVarName) {
    HBL_ASSERT(dispatcherTransportVarName);
    return header == nullptr ? nullptr
                             : valueOf(header->getDispatcherTransportVars(), dispatcherTransportVarName);
}
