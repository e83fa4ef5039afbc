#include "serialization/detail/ElementWriter.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypeRows.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "serialization/detail/ClassPlan.h"
#include "serialization/detail/EnvelopeText.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQXmlEncodeOutputStream.h"

#include <algorithm>
#include <charconv>

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

bool isArrayRow(const SchemaTypeRow* row) {
    return row != nullptr && row->elementXsiName != nullptr;
}

/// Whether a value of the type is written as text; the other simple types have no form on the wire.
bool hasSimpleForm(MRLSchemaTypeI::ObjectType type) {
    switch (type) {
    case MRLSchemaTypeI::eString:
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger:
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eDateTime:
    case MRLSchemaTypeI::eBoolean:
    case MRLSchemaTypeI::eBase64Binary:
    case MRLSchemaTypeI::eFloat:
    case MRLSchemaTypeI::eQName: return true;
    default: return false;
    }
}

/// Whether a text goes out as it is. Without a branch in the loop, so that many bytes are looked at in one
/// step; what it does not know it leaves to the encoder.
bool isPlain(std::string_view text) {
    unsigned others = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        others |= static_cast<unsigned>(byte < 0x20) | static_cast<unsigned>(byte > 0x7E) |
                  static_cast<unsigned>(byte == '&') | static_cast<unsigned>(byte == '<') |
                  static_cast<unsigned>(byte == '>') | static_cast<unsigned>(byte == '"') |
                  static_cast<unsigned>(byte == '\'');
    }
    return others == 0;
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
        Frame& frame = m_frames.back();
        if (frame.next == frame.end) {
            closeFrame();
        } else if (frame.plan != nullptr) {
            writeMembers(m_frames.size());
        } else {
            writeNextChild();
        }
    }
}

void ElementWriter::open(void* object, ObjectType type, const Name& name, const Form& form) {
    const SchemaTypeRow* const row = findSchemaType(type);
    const bool isArray = isArrayRow(row);
    if (object == nullptr && !isArray && !form.forceEmpty && !m_writeNulls) {
        return;
    }
    writeStart(object, type, row, name, form);
    if (object == nullptr) {
        m_out.put(isArray ? "/>\n" : " xsi:nil=\"true\"/>\n");
        return;
    }
    if (hasSimpleForm(type)) {
        writeSimple(object, type);
        if (form.closeTag) {
            putClosingTag(name);
        }
        return;
    }
    Frame frame{.object = static_cast<MRLSchemaTypeI*>(object),
                .plan = nullptr,
                .name = name,
                .first = m_names.size(),
                .next = m_names.size(),
                .end = m_names.size(),
                .indentLevel = form.indentLevel,
                .isArray = isArray,
                .isComplex = false,
                .isTagOpen = true,
                .closeTag = form.closeTag};
    if (MRLSchemaTypesFactory::isGeneratedType(type) == 0) {
        return pushFrame(frame, nullptr);
    }
    const ClassPlan* const plan = row != nullptr ? ClassPlan::of(*row) : nullptr;
    const char* firstName = nullptr;
    if (plan != nullptr) {
        const std::size_t count = plan->members().size();
        const std::size_t first = m_values.size();
        m_values.resize(first + count);
        if (row->readMembers(*frame.object, m_values.data() + first)) {
            frame.plan = plan;
            frame.first = frame.next = first;
            frame.end = first + count;
            firstName = count != 0 ? plan->members().front().name : nullptr;
        } else {
            m_values.resize(first);
        }
    }
    if (frame.plan == nullptr) {
        frame.object->getChildObjectNames(m_names, true);
        frame.end = m_names.size();
        firstName = frame.end != frame.first ? m_names[frame.first] : nullptr;
    }
    if (frame.end == frame.first) {
        m_out.put("/>\n");
        return;
    }
    pushFrame(frame, firstName);
}

/// @param firstName the first child's; null when there is none.
void ElementWriter::pushFrame(const Frame& frame, const char* firstName) {
    m_frames.push_back(frame);
    if (firstName != nullptr && *firstName != '\0') {
        m_frames.back().isComplex = true;
        m_frames.back().isTagOpen = false;
        m_out.put(">\n");
    }
}

void ElementWriter::writeStart(void* object, ObjectType type, const SchemaTypeRow* row, const Name& name,
                               const Form& form) {
    const bool isArray = isArrayRow(row);
    m_out.putTabs(form.indentLevel + 1);
    if (name.plan != nullptr && name.plan->isGenerated && !isArray) {
        m_out.put(name.plan->open);
    } else {
        m_out.put('<');
        m_out.put(name.prefix);
        m_out.put(name.local);
        if (form.writeNamespaces) {
            m_out.put(text::namespaces);
        }
        m_out.put(isArray ? R"( xsi:type="SOAP-ENC:Array" SOAP-ENC:arrayType=")" : R"( xsi:type=")");
    }
    if (isArray) {
        auto* array = static_cast<MRLSchemaTypeArrayI*>(static_cast<MRLSchemaTypeI*>(object));
        types().objectTypeToArrayType(type, array, m_arrayType);
        m_out.put(m_arrayType);
    } else if (row != nullptr && type != MRLSchemaTypeI::e_Unknown) {
        m_out.put(std::string_view(row->xsiName));
    } else {
        m_out.put(std::string_view(types().objectTypeToXSIType(type))); // which says what is wrong
    }
    m_out.put('"');
}

/// What follows the type of an element with a simple value, up to its closing tag.
void ElementWriter::writeSimple(void* value, ObjectType type) {
    const char* const characters = static_cast<const char*>(value);
    switch (type) {
    case MRLSchemaTypeI::eString:
        if (!putReference(characters)) {
            m_out.put('>');
            putEscaped(characters);
        }
        return;
    case MRLSchemaTypeI::eDateTime:
    case MRLSchemaTypeI::eQName:
        m_out.put('>');
        putEscaped(characters);
        return;
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger:
        m_out.put('>');
        putInt(m_out, *static_cast<const int*>(value));
        return;
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eFloat:
        m_out.put('>');
        putDecimal(m_out, *static_cast<const double*>(value));
        return;
    case MRLSchemaTypeI::eBoolean:
        m_out.put(*static_cast<const int*>(value) != 0 ? ">true" : ">false");
        return;
    default: { // eBase64Binary
        const auto& binary = *static_cast<const MRLBase64Binary*>(value);
        const bool isReference = binary.getIsContentId() != 0;
        m_out.put(isReference ? CONTENT_ID : std::string_view(">"));
        binary.serialize(m_out);
        if (isReference) {
            m_out.put("\">");
        }
        return;
    }
    }
}

/// Writes a text that stands for an attachment as an attribute; false, and nothing, for any other.
bool ElementWriter::putReference(const char* text) {
    if (!isContentId(text)) {
        return false;
    }
    m_out.put(CONTENT_ID);
    MRL_CharStreamable(text) >> m_out;
    m_out.put("\">");
    return true;
}

void ElementWriter::writeNextChild() {
    Frame& frame = m_frames.back();
    const char* const name = m_names[frame.next++];
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

/// Writes the members that are left of the innermost frame, number `depth`, up to one that opens a frame
/// of its own.
void ElementWriter::writeMembers(std::size_t depth) {
    while (m_frames.size() == depth) {
        Frame& frame = m_frames.back();
        if (!m_writeNulls) { // most members are absent; an array, which would be written, never is
            const auto from = m_values.begin() + static_cast<std::ptrdiff_t>(frame.next);
            const auto to = m_values.begin() + static_cast<std::ptrdiff_t>(frame.end);
            frame.next = static_cast<std::size_t>(
                std::find_if(from, to, [](const void* value) { return value != nullptr; }) -
                m_values.begin());
        }
        if (frame.next == frame.end) {
            return;
        }
        const MemberPlan& member = frame.plan->members()[frame.next - frame.first];
        void* const value = m_values[frame.next++];
        writeMember(member, value);
    }
}

void ElementWriter::writeMember(const MemberPlan& member, void* value) {
    Frame& frame = m_frames.back();
    if (!member.isGenerated && *member.name == '\0') {
        return writeOwnText(frame, static_cast<const char*>(value), member.type);
    }
    finishTag(frame);
    const Form form{.indentLevel = frame.indentLevel + 1};
    const Name name{"bus:", member.name, &member};
    if (member.isGenerated) {
        const ObjectType type =
            value != nullptr ? static_cast<MRLSchemaTypeI*>(value)->getObjectType() : member.type;
        return open(value, type, name, form); // may move the frames
    }
    if (value == nullptr || !hasSimpleForm(member.type)) {
        return open(value, member.type, name, form);
    }
    m_out.putTabs(form.indentLevel + 1);
    m_out.put(member.open);
    writeSimple(value, member.type);
    m_out.put(member.close);
}

void ElementWriter::writeOwnText(Frame& frame, const char* text, ObjectType type) {
    HBL_ASSERT_NAMED(type == MRLSchemaTypeI::eString, "Conversion of text not currently supported.");
    if (text == nullptr) {
        return;
    }
    if (frame.isTagOpen && putReference(text)) {
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
    if (frame.end != frame.first) {
        finishTag(frame);
    }
    if (frame.isComplex) {
        m_out.putTabs(frame.indentLevel + 1);
    }
    if (frame.closeTag) {
        putClosingTag(frame.name);
    }
    if (frame.plan != nullptr) {
        m_values.resize(frame.first);
    } else {
        m_names.resize(frame.first);
    }
    m_frames.pop_back();
}

/// A text, or what stands in its slot in place of one.
void ElementWriter::putEscaped(const char* text) {
    const bool isStreamable = MRL_CharStreamable::isCharStreamable(text);
    const std::string_view characters = isStreamable ? std::string_view() : std::string_view(text);
    if (!isStreamable && isPlain(characters)) {
        return m_out.put(characters);
    }
    PLQXmlEncodeOutputStream escaped(m_out);
    if (isStreamable) {
        MRL_CharStreamable(text) >> escaped;
    } else {
        escaped.write(characters.data(), characters.size());
    }
    escaped.unWrap(); // ends the text
}

void ElementWriter::putClosingTag(const Name& name) {
    if (name.plan != nullptr) {
        return m_out.put(name.plan->close);
    }
    m_out.put("</");
    m_out.put(name.prefix);
    m_out.put(name.local);
    m_out.put(">\n");
}

} // namespace mrl::detail
