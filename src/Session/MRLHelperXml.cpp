// XML: documents from bytes, copies and addresses of nodes, trace files.

#include "Common/HBLI18NBuffer.h"
#include "Common/MRLException.h"
#include "Common/MRLExceptionMessage.h"
#include "I18NRes/MRLI18NRes.h"
#include "Session/MRLHelper.h"

#include "HBLCore/HBLFmDir.h"
#include "HBLCore/HBLFmFile.h"
#include "HBLCore/HBLMessageString.h"
#include "HBLCore/HBLUtCrc32.h"
#include "HBLIDOM/HBLIDOM.h"
#include "PLQStreams/PLQInputStream.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace {

constexpr std::string_view TRACE_END = "</x>";

/// Runs `parse` on a parser, into a document that is new in any case.
/// @param filename the first parameter of the message about a file; null for memory and streams.
template <class Parse>
void parseInto(HBLIDOM_Document& document, const char* filename, const Parse& parse) {
    document = HBLIDOM_DOMImplementation::getInstance().createDocument();
    HBLIDOM_Parser parser(HBLIDOM_Parser::ePassOverDocumentType);
    if (parse(parser) != 0 && parser.getErrorCode() == 0) {
        return;
    }
    MRLExceptionMessage message(filename != nullptr ? msg::malformedXmlFile : msg::malformedXmlDocument);
    if (filename != nullptr) {
        message << filename;
    }
    message << HBLMessageParm(parser.getCurrentLineNumber(), HBLMessageParm::eDigits)
            << HBLMessageParm(parser.getCurrentColumnNumber(), HBLMessageParm::eDigits);
    HBL_THROW(MRLException(0) << message << HBLMessageString(parser.errorString()), "MRLHelper::parseXML");
}

std::uint32_t crcOf(const I18NString& text) {
    return HBLUtCrc32::crc32(text, 0, 0);
}

/// Whether `crc` is that of a name: of its bytes, as symbols have it, or of its units, as texts do.
bool isCrcOf(const I18NString& name, std::uint32_t crc) {
    return HBLUtCrc32::crc32(name.c_str(), 0) == crc || crcOf(name) == crc;
}

/// The nearest element beside `node` with the same tag in one direction; null if there is none.
HBLIDOM_Node sameTagBeside(const HBLIDOM_Node& node, std::uint32_t tagCrc,
                           HBLIDOM_Node (HBLIDOM_Node::*step)() const) {
    HBLIDOM_Node beside = (node.*step)();
    while (beside.isNull() == 0 &&
           !(beside.getNodeType() == HBLIDOM_Node::ELEMENT_NODE && crcOf(beside.getNodeName()) == tagCrc)) {
        beside = (beside.*step)();
    }
    return beside;
}

/// The element's tag, with its number where others of the tag stand beside it.
I18NString xpathStep(const HBLIDOM_Node& element, int firstIndex) {
    I18NString step = element.getNodeName();
    const std::uint32_t tagCrc = crcOf(step);
    int index = firstIndex;
    HBLIDOM_Node before = sameTagBeside(element, tagCrc, &HBLIDOM_Node::getPreviousSibling);
    const bool isUnique =
        before.isNull() != 0 && sameTagBeside(element, tagCrc, &HBLIDOM_Node::getNextSibling).isNull() != 0;
    while (before.isNull() == 0) {
        ++index;
        before = sameTagBeside(before, tagCrc, &HBLIDOM_Node::getPreviousSibling);
    }
    if (!isUnique) {
        step += "[" + std::to_string(index) + "]";
    }
    return step;
}

std::string contentOf(HBLFmFile& file) {
    std::string content;
    std::vector<char> piece(64UL * 1024);
    std::int64_t read = 0;
    while ((read = file.read(piece.data(), piece.size())) > 0) {
        content.append(piece.data(), static_cast<std::size_t>(read));
    }
    HBL_ASSERT(read == 0);
    return content;
}

} // namespace

void MRLHelper::parseXML(const char* buffer, std::size_t size, HBLIDOM_Document& document) {
    HBL_ASSERT(buffer);
    parseInto(document, nullptr,
              [&](HBLIDOM_Parser& parser) { return parser.parse(buffer, size, document); });
}

void MRLHelper::parseXML(PLQInputStream& stream, HBLIDOM_Document& document) {
    parseInto(document, nullptr, [&](HBLIDOM_Parser& parser) { return parser.parse(stream, document); });
}

void MRLHelper::parseXML(const char* filename, HBLIDOM_Document& document) {
    HBL_ASSERT(filename);
    parseInto(document, filename, [&](HBLIDOM_Parser& parser) { return parser.parse(filename, document); });
}

void MRLHelper::loadReportSpecificationFromFile(const char* path, HBLIDOM_Document& document) {
    HBLFmFile file;
    if (path == nullptr || file.open(path, HBLFmFile::eOpenExisting, HBLFmFile::eReadOnly) == 0) {
        return;
    }
    const std::string content =
        hblRethrowing("MRLHelper::loadReportSpecificationFromFile", [&] { return contentOf(file); });
    file.close();
    if (content.empty()) {
        return;
    }
    std::string withType;
    const bool isMade =
        addDocumentTypeDeclaration(content.data(), content.size(), withType, nullptr, nullptr) != 0;
    const std::string& text = isMade ? withType : content;
    parseXML(text.data(), text.size(), document);
}

int MRLHelper::addDocumentTypeDeclaration(const char* buffer, std::size_t size, std::string& out,
                                          const char* dtdPath, const char* rootName) {
    HBL_ASSERT(buffer);
    const std::string_view text(buffer, size);
    std::size_t tag = text.find('<');
    if (tag != text.npos && text.size() - tag >= 7 && text.substr(tag).starts_with("<?xml ")) {
        tag = text.find('<', tag + 1);
    }
    if (tag == text.npos || (text.size() - tag >= 11 && text.substr(tag).starts_with("<!DOCTYPE "))) {
        return 0;
    }
    std::string path = dtdPath != nullptr ? dtdPath : MRLI18NRes::getChar(MRLI18NRes::eReportDtd);
    HBLFmDir::resolveEffectivePath(path);
    const std::string declaration =
        std::string("<!DOCTYPE ") + (rootName != nullptr ? rootName : "report") + " SYSTEM \"" + path + "\">";
    out.clear();
    out.reserve(size + declaration.size());
    out.append(text.substr(0, tag)).append(declaration).append(text.substr(tag));
    return 1;
}

void MRLHelper::getDomXPath(const HBLIDOM_Element& element, HBLI18NBuffer& path, unsigned int stopCrc,
                            int indexFromZero) {
    path.clear();
    std::vector<I18NString> steps; // the innermost first
    HBLIDOM_Node node = element;
    for (; node.isNull() == 0; node = node.getParentNode()) {
        if (node.getNodeType() != HBLIDOM_Node::ELEMENT_NODE) {
            continue;
        }
        if (isCrcOf(node.getLocalName(), stopCrc)) {
            break;
        }
        steps.push_back(xpathStep(node, indexFromZero == 1 ? 0 : 1));
    }
    I18NString text = node.isNull() == 0 ? I18NString(MRLI18NRes::getXPathPiece(0)) : I18NString();
    for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
        text += *step;
        if (step + 1 != steps.rend()) {
            text.append(u'/');
        }
    }
    path = text;
}

HBLIDOM_Document MRLHelper::clone(HBLIDOM_Node& nodeToClone) {
    HBL_ASSERT_NAMED((nodeToClone.getNodeType() == HBLIDOM_Node::DOCUMENT_NODE) ||
                         (nodeToClone.getNodeType() == HBLIDOM_Node::ELEMENT_NODE),
                     "Unsupported node type.");
    HBLIDOM_Document copy = HBLIDOM_DOMImplementation::getInstance().createDocument();
    if (nodeToClone.getNodeType() == HBLIDOM_Node::ELEMENT_NODE) {
        copy.appendChild(copy.importNode(nodeToClone, 1));
        return copy;
    }
    for (HBLIDOM_Node child = nodeToClone.getFirstChild(); child.isNull() == 0;
         child = child.getNextSibling()) {
        copy.appendChild(copy.importNode(child, 1));
    }
    return copy;
}

std::FILE* MRLHelper::startXmlTraceFile(const char* fileName, const char* attributes) {
    HBL_ASSERT(fileName);
    std::FILE* file = std::fopen(fileName, "r+e");
    if (file != nullptr) {
        static_cast<void>(std::fseek(file, -static_cast<long>(TRACE_END.size()), SEEK_END));
    } else {
        file = std::fopen(fileName, "we");
        if (file == nullptr) {
            return nullptr;
        }
        static_cast<void>(std::fputs("<x>\n", file));
    }
    static_cast<void>(std::fputs("<document", file));
    if (attributes != nullptr) {
        static_cast<void>(std::fprintf(file, " %s", attributes));
    }
    static_cast<void>(std::fputs(">\n", file));
    return file;
}

void MRLHelper::endXmlTraceFile(std::FILE* file) {
    if (file != nullptr) {
        static_cast<void>(std::fputs("</document>\n</x>", file));
        static_cast<void>(std::fclose(file));
    }
}
