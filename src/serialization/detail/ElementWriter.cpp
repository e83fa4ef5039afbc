#include "serialization/detail/ElementWriter.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "serialization/detail/EnvelopeText.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQXmlEncodeOutputStream.h"

#include <charconv>
#include <cstring>

namespace mrl::detail {

namespace {

constexpr std::string_view CONTENT_ID = R"( href="cid:)";

MRLSchemaTypesFactory& types() {
    static MRLSchemaTypesFactory& s_factory = MRLSchemaTypesFactory::getInstance();
    return s_factory;
}

bool isContentId(const char* value) {
    return MRL_CharStreamable::isCharStreamable(value) && MRL_CharStreamable(value).getIsContentId() != 0;
}

void putInt(GatheringOutputStream& out, int value) {
    char digits[16];
    const auto end = std::to_chars(digits, digits + sizeof digits, value).ptr;
    out.write(digits, static_cast<std::size_t>(end - digits));
}

/// Two decimals and a blank, whatever the locale of the host.
void putDecimal(GatheringOutputStream& out, double value) {
    char digits[384]; // the largest double has 309 digits before the point
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 2).ptr;
    out.write(digits, static_cast<std::size_t>(end - digits));
    out.put(' ');
}

} // namespace

ElementWriter::ElementWriter(GatheringOutputStream& out, bool writeNulls)
    : m_out(out)
    , m_writeNulls(writeNulls) {}

void ElementWriter::write(void* object, ObjectType type, const char* qName, const Form& form) {
    if (object == nullptr && !form.forceEmpty && !m_writeNulls && types().isArrayType(type) == 0) {
        return;
    }
    HBL_ASSERT_NAMED(qName, "NULL qname");
    open(object, type, Name{{}, qName}, form);
    while (!m_frames.empty()) {
        if (m_frames.back().nextName != m_frames.back().endName) {
            writeNextChild();
        } else {
            closeFrame();
        }
    }
}

void ElementWriter::open(void* object, ObjectType type, const Name& name, const Form& form) {
    const bool isArray = types().isArrayType(type) != 0;
    if (object == nullptr && !isArray && !form.forceEmpty && !m_writeNulls) {
        return;
    }
    writeStart(object, type, name, form, isArray);
    if (object == nullptr) {
        m_out.put(isArray ? "/>\n" : " xsi:nil=\"true\"/>\n");
        return;
    }
    switch (type) {
    case MRLSchemaTypeI::eString:
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger:
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eDateTime:
    case MRLSchemaTypeI::eBoolean:
    case MRLSchemaTypeI::eBase64Binary:
    case MRLSchemaTypeI::eFloat:
    case MRLSchemaTypeI::eQName: return writeSimple(object, type, name, form);
    default: break;
    }
    const std::size_t firstName = m_names.size();
    if (MRLSchemaTypesFactory::isGeneratedType(type) != 0) {
        static_cast<MRLSchemaTypeI*>(object)->getChildObjectNames(m_names, true);
        if (m_names.size() == firstName) {
            m_out.put("/>\n");
            return;
        }
    }
    pushFrame(object, name, form, isArray, firstName);
}

void ElementWriter::writeStart(void* object, ObjectType type, const Name& name, const Form& form,
                               bool isArray) {
    m_out.putTabs(form.indentLevel + 1);
    m_out.put('<');
    m_out.put(name.prefix);
    m_out.put(name.local);
    if (form.writeNamespaces) {
        m_out.put(text::namespaces);
    }
    if (isArray) {
        auto* array = static_cast<MRLSchemaTypeArrayI*>(static_cast<MRLSchemaTypeI*>(object));
        types().objectTypeToArrayType(type, array, m_arrayType);
        m_out.put(R"( xsi:type="SOAP-ENC:Array" SOAP-ENC:arrayType=")");
        m_out.put(m_arrayType);
    } else {
        m_out.put(R"( xsi:type=")");
        m_out.put(std::string_view(types().objectTypeToXSIType(type)));
    }
    m_out.put('"');
}

void ElementWriter::writeSimple(void* value, ObjectType type, const Name& name, const Form& form) {
    const char* const characters = static_cast<const char*>(value);
    switch (type) {
    case MRLSchemaTypeI::eString:
        if (isContentId(characters)) {
            m_out.put(CONTENT_ID);
            MRL_CharStreamable(characters) >> m_out;
            m_out.put("\">");
            break;
        }
        m_out.put('>');
        putEscaped(characters);
        break;
    case MRLSchemaTypeI::eDateTime:
    case MRLSchemaTypeI::eQName:
        m_out.put('>');
        putEscaped(characters);
        break;
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger:
        m_out.put('>');
        putInt(m_out, *static_cast<const int*>(value));
        break;
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eFloat:
        m_out.put('>');
        putDecimal(m_out, *static_cast<const double*>(value));
        break;
    case MRLSchemaTypeI::eBoolean:
        m_out.put(*static_cast<const int*>(value) != 0 ? ">true" : ">false");
        break;
    default: { // eBase64Binary
        const auto& binary = *static_cast<const MRLBase64Binary*>(value);
        if (binary.getIsContentId() != 0) {
            m_out.put(CONTENT_ID);
            binary.serialize(m_out);
            m_out.put("\">");
        } else {
            m_out.put('>');
            binary.serialize(m_out);
        }
        break;
    }
    }
    if (form.closeTag) {
        putClosingTag(name);
    }
}

void ElementWriter::pushFrame(void* object, const Name& name, const Form& form, bool isArray,
                              std::size_t firstName) {
    const bool hasNames = m_names.size() != firstName;
    const char* const first = hasNames ? m_names[firstName] : nullptr;
    const bool isComplex = first != nullptr && *first != '\0';
    if (isComplex) {
        m_out.put(">\n");
    }
    m_frames.push_back({static_cast<MRLSchemaTypeI*>(object), name, firstName, firstName, m_names.size(),
                        form.indentLevel, isArray, isComplex, !isComplex, form.closeTag});
}

void ElementWriter::writeNextChild() {
    Frame& frame = m_frames.back();
    const char* const name = m_names[frame.nextName++];
    void* const child = frame.object->getChildObject(name, 0);
    ObjectType type = frame.object->getChildType(name);
    const bool isGenerated = MRLSchemaTypesFactory::isGeneratedType(type) != 0;
    if (isGenerated && child != nullptr) {
        type = static_cast<MRLSchemaTypeI*>(child)->getObjectType();
    }
    if (!frame.isArray && !isGenerated && *name == '\0') {
        return writeOwnText(frame, static_cast<const char*>(child), type);
    }
    finishTag(frame);
    const Name qName = frame.isArray ? Name{{}, "item"} : Name{"bus:", name};
    open(child, type, qName, Form{.indentLevel = frame.indentLevel + 1}); // may move the frames
}

void ElementWriter::writeOwnText(Frame& frame, const char* text, ObjectType type) {
    HBL_ASSERT_NAMED(type == MRLSchemaTypeI::eString, "Conversion of text not currently supported.");
    if (text == nullptr) {
        return;
    }
    if (frame.isTagOpen && isContentId(text)) {
        m_out.put(CONTENT_ID);
        MRL_CharStreamable(text) >> m_out;
        m_out.put("\">");
        frame.isTagOpen = false;
        return;
    }
    finishTag(frame);
    putEscaped(text);
}

void ElementWriter::finishTag(Frame& frame) {
    if (frame.isTagOpen) {
        m_out.put('>');
        frame.isTagOpen = false;
    }
}

void ElementWriter::closeFrame() {
    Frame& frame = m_frames.back();
    // A value of a type without a form on the wire (xs:time, xs:anyType) has no names, and its start
    // tag stays as it is; an absent own text still leaves an element that can be read.
    if (frame.endName != frame.firstName) {
        finishTag(frame);
    }
    if (frame.isComplex) {
        m_out.putTabs(frame.indentLevel + 1);
    }
    if (frame.closeTag) {
        putClosingTag(frame.name);
    }
    m_names.resize(frame.firstName);
    m_frames.pop_back();
}

/// A text, or what stands in its slot in place of one.
void ElementWriter::putEscaped(const char* text) {
    PLQXmlEncodeOutputStream escaped(m_out);
    if (MRL_CharStreamable::isCharStreamable(text)) {
        MRL_CharStreamable(text) >> escaped;
    } else {
        escaped.write(text, std::strlen(text));
    }
    escaped.unWrap(); // ends the text
}

void ElementWriter::putClosingTag(const Name& name) {
    m_out.put("</");
    m_out.put(name.prefix);
    m_out.put(name.local);
    m_out.put(">\n");
}

} // namespace mrl::detail
