#include "traffic/Envelope.h"

#include "traffic/Recording.h"

#include "HBLIDOM/HBLIDOM_Attr.h"
#include "HBLIDOM/HBLIDOM_Helper.h"
#include "HBLIDOM/HBLIDOM_NamedNodeMap.h"
#include "HBLIDOM/HBLIDOM_Parser.h"

#include <fstream>
#include <set>

namespace mrl::tool {

namespace fs = std::filesystem;

namespace {

constexpr const char* SOAP = "http://schemas.xmlsoap.org/soap/envelope/";

HBLIDOM_Element firstElement(const HBLIDOM_Node& parent) {
    for (HBLIDOM_Node node = parent.getFirstChild(); node.isNull() == 0; node = node.getNextSibling())
        if (node.getNodeType() == HBLIDOM_Node::ELEMENT_NODE)
            return HBLIDOM_Element(node);
    return {};
}

HBLIDOM_Element soapChild(const HBLIDOM_Node& parent, const char* name) {
    const HBLIDOM_Element child = HBLIDOM_Helper::findChildElement(parent, name);
    return child.isNull() == 0 && HBLIDOM_Helper::matchNamespaceURI(child, SOAP) != 0 ? child
                                                                                      : HBLIDOM_Element();
}

std::string textOf(const HBLIDOM_Node& in, const char* name) {
    const HBLIDOM_Element found = HBLIDOM_Helper::findFirstElement(in, name);
    return found.isNull() != 0 ? std::string() : HBLIDOM_Helper::getElementText(found).toUtf8();
}

void collectReferences(const HBLIDOM_Node& root, std::set<std::string>& ids) {
    for (HBLIDOM_Node node = root; node.isNull() == 0;) {
        if (node.getNodeType() == HBLIDOM_Node::ELEMENT_NODE) {
            const std::string href = HBLIDOM_Element(node).getAttribute("href").toUtf8();
            if (href.starts_with("cid:"))
                ids.insert(href);
        }
        HBLIDOM_Node next = node.getFirstChild();
        while (next.isNull() != 0 && !(node == root)) {
            next = node.getNextSibling();
            if (next.isNull() != 0)
                node = node.getParentNode();
        }
        node = next;
    }
}

void lookInto(Envelope& envelope) {
    const HBLIDOM_Element root = envelope.document.getDocumentElement();
    const HBLIDOM_Element body = soapChild(root, "Body");
    if (HBLIDOM_Helper::matchLocalName(root, "Envelope") == 0 ||
        HBLIDOM_Helper::matchNamespaceURI(root, SOAP) == 0 || body.isNull() != 0) {
        envelope.kind = Envelope::foreign;
        envelope.problem = "it is XML, but no SOAP 1.1 envelope with a body";
        return;
    }
    envelope.kind = Envelope::sound;
    std::set<std::string> ids;
    collectReferences(root, ids);
    envelope.references = ids.size();
    envelope.content = firstElement(body);
    if (envelope.content.isNull() != 0)
        return;
    envelope.operation = envelope.content.getLocalName().toUtf8();
    if (envelope.isFault()) {
        envelope.faultCode = textOf(envelope.content, "errorCode");
        if (envelope.faultCode.empty())
            envelope.faultCode = textOf(envelope.content, "errorCodeString");
        envelope.faultText = textOf(envelope.content, "faultstring");
        if (envelope.faultText.empty())
            envelope.faultText = "a fault without a text";
    }
}

} // namespace

std::string bytesOf(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::string bytes{std::istreambuf_iterator<char>(file), {}};
    if (!file.is_open() || file.bad())
        throw TrafficError("the file '" + path.string() + "' cannot be read");
    return bytes;
}

Envelope Envelope::read(const fs::path& path) {
    Envelope envelope;
    if (path.empty())
        return envelope;
    const std::string bytes = bytesOf(path);
    envelope.size = bytes.size();
    const std::size_t begin = bytes.find_first_not_of(" \t\r\n");
    if (begin == std::string::npos) {
        envelope.kind = empty;
        return envelope;
    }
    // A byte order mark or the first bracket in any encoding; a cipher text begins with neither.
    const auto first = static_cast<unsigned char>(bytes[begin]);
    if (first != '<' && first != 0xEF && first < 0xFE && first != 0) {
        envelope.kind = encrypted;
        return envelope;
    }
    HBLIDOM_Parser parser;
    if (parser.parse(bytes.data(), bytes.size(), envelope.document) == 0) {
        envelope.kind = malformed;
        envelope.problem = "line " + std::to_string(parser.getCurrentLineNumber()) + ", column " +
                           std::to_string(parser.getCurrentColumnNumber()) + ": " +
                           parser.errorString().toUtf8();
        return envelope;
    }
    lookInto(envelope);
    return envelope;
}

} // namespace mrl::tool
