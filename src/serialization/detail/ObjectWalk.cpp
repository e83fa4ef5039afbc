#include "serialization/detail/ObjectWalk.h"

#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLNamespaces.h"
#include "Toolkit/MRLSchemaTypeArrayI.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRL_CharStreamable.h"

#include "HBLCore/HBLFailure.h"

#include <charconv>

namespace mrl::detail {

namespace {

constexpr const char* XMLNS = "http://www.w3.org/2000/xmlns/";

MRLSchemaTypesFactory& types() {
    return MRLSchemaTypesFactory::getInstance();
}

bool isGenerated(MRLSchemaTypeI::ObjectType type) {
    return MRLSchemaTypesFactory::isGeneratedType(type) != 0;
}

/// Simple values that can be told; xs:time, xs:anyType and what has no name on the wire cannot.
bool isSimple(MRLSchemaTypeI::ObjectType type) {
    return !isGenerated(type) && type != MRLSchemaTypeI::eTime && type != MRLSchemaTypeI::eAnyType &&
           type != MRLSchemaTypeI::eCharStreamable;
}

bool isContentId(const char* value) {
    return MRL_CharStreamable::isCharStreamable(value) && MRL_CharStreamable(value).getIsContentId() != 0;
}

MRLSchemaTypeArrayI* arrayOf(void* object) {
    return static_cast<MRLSchemaTypeArrayI*>(static_cast<MRLSchemaTypeI*>(object));
}

} // namespace

ElementEvents::~ElementEvents() = default;

void ObjectWalk::run(void* object, ObjectType type, const char* name) {
    HBL_ASSERT(name);
    if (!isWritten(object, type)) {
        return;
    }
    declareNamespaces();
    open(object, type, {name, true});
    while (!m_frames.empty()) {
        if (m_frames.back().nextName != m_frames.back().endName) {
            tellNextChild();
        } else {
            close();
        }
    }
}

bool ObjectWalk::isWritten(void* object, ObjectType type) const {
    if (types().isArrayType(type) == 0) {
        return object != nullptr || m_rules.nilForNull;
    }
    const MRLSchemaTypeArrayI* const generatedArrayObj = object == nullptr ? nullptr : arrayOf(object);
    if (generatedArrayObj == nullptr && m_rules.nullArrays) {
        return true;
    }
    HBL_ASSERT(generatedArrayObj);
    return m_rules.emptyArrays || generatedArrayObj->size() != 0;
}

void ObjectWalk::declareNamespaces() {
    m_attributes.push_back({"xmlns:xs", XMLNS, ns::xmlSchema});
    m_attributes.push_back({"xmlns:xsi", XMLNS, ns::xmlSchemaInstance});
    m_attributes.push_back({"xmlns:SOAP-ENC", XMLNS, ns::soapEncoding});
    m_attributes.push_back({"xmlns:bus", XMLNS, ns::bus});
}

/// Begins an element that is written, for a parent that has started. May move the frames.
void ObjectWalk::open(void* object, ObjectType type, const ElementName& name) {
    const bool isGeneratedType = object == nullptr || isSimple(type) || isGenerated(type);
    HBL_ASSERT_NAMED(isGeneratedType, "Only generated object types can be serialized at this point.");
    setType(object, type);
    if (object != nullptr && isSimple(type)) {
        return tellSimple(object, type, name);
    }
    const bool isArray = types().isArrayType(type) != 0;
    if (object == nullptr && !isArray) {
        m_attributes.push_back({"xsi:nil", ns::xmlSchemaInstance, "true"});
    }
    const std::size_t firstName = m_names.size();
    if (object != nullptr) {
        static_cast<MRLSchemaTypeI*>(object)->getChildObjectNames(m_names, true);
    }
    m_frames.push_back(
        {static_cast<MRLSchemaTypeI*>(object), name, firstName, firstName, m_names.size(), isArray, false});
}

void ObjectWalk::setType(void* object, ObjectType type) {
    if (types().isArrayType(type) == 0) {
        m_attributes.push_back({"xsi:type", ns::xmlSchemaInstance, types().objectTypeToXSIType(type)});
        return;
    }
    m_attributes.push_back({"xsi:type", ns::xmlSchemaInstance, "SOAP-ENC:Array"});
    m_attributes.push_back({"SOAP-ENC:arrayType", ns::soapEncoding, {}});
    types().objectTypeToArrayType(type, object == nullptr ? nullptr : arrayOf(object),
                                  m_attributes.back().value);
}

void ObjectWalk::tellSimple(void* value, ObjectType type, const ElementName& name) {
    const bool isReference =
        type == MRLSchemaTypeI::eBase64Binary
            ? static_cast<const MRLBase64Binary*>(value)->getIsContentId() != 0
            : type == MRLSchemaTypeI::eString && isContentId(static_cast<const char*>(value));
    const std::string_view text = textOf(value, type);
    if (isReference) {
        setContentId(text);
    }
    m_events.start(name, m_attributes);
    m_attributes.clear();
    if (!isReference) {
        tellCharacters(text);
    }
    m_events.end(name);
}

/// Good until the next call.
std::string_view ObjectWalk::textOf(const void* value, ObjectType type) {
    const auto digits = [this](auto... written) {
        return std::string_view(
            m_digits, static_cast<std::size_t>(
                          std::to_chars(m_digits, std::end(m_digits) - 1, written...).ptr - m_digits));
    };
    switch (type) {
    case MRLSchemaTypeI::eInt:
    case MRLSchemaTypeI::eInteger: return digits(*static_cast<const int*>(value));
    case MRLSchemaTypeI::eDecimal:
    case MRLSchemaTypeI::eFloat: { // two decimals and a blank, whatever the locale of the host
        const std::size_t length =
            digits(*static_cast<const double*>(value), std::chars_format::fixed, 2).size();
        m_digits[length] = ' ';
        return {m_digits, length + 1};
    }
    case MRLSchemaTypeI::eBoolean: return *static_cast<const int*>(value) != 0 ? "true" : "false";
    case MRLSchemaTypeI::eBase64Binary:
        m_text.reset();
        static_cast<const MRLBase64Binary*>(value)->serialize(m_text);
        return {m_text.bytes(), m_text.length()};
    default: return textOf(static_cast<const char*>(value));
    }
}

/// A text, or what stands in its slot in place of one, in one piece.
std::string_view ObjectWalk::textOf(const char* text) {
    if (!MRL_CharStreamable::isCharStreamable(text)) {
        return text;
    }
    m_text.reset();
    MRL_CharStreamable(text) >> m_text;
    return {m_text.bytes(), m_text.length()};
}

void ObjectWalk::tellNextChild() {
    Frame& frame = m_frames.back();
    const char* const name = m_names[frame.nextName++];
    void* const child = frame.object->getChildObject(name, 0);
    ObjectType type = frame.object->getChildType(name);
    if (isGenerated(type)) {
        if (child != nullptr) {
            type = static_cast<MRLSchemaTypeI*>(child)->getObjectType();
        }
    } else if (!frame.isArray && *name == '\0') {
        return tellOwnText(frame, static_cast<const char*>(child), type);
    }
    if (isWritten(child, type)) {
        ensureStarted(frame);
        open(child, type, frame.isArray ? ElementName{"item", false} : ElementName{name, true});
    }
}

void ObjectWalk::tellOwnText(Frame& frame, const char* text, ObjectType type) {
    HBL_ASSERT_NAMED(type == MRLSchemaTypeI::eString, "Conversion of text not currently supported.");
    if (text == nullptr) {
        return;
    }
    const std::string_view characters = textOf(text);
    if (!frame.isStarted && isContentId(text)) {
        setContentId(characters);
        return ensureStarted(frame);
    }
    ensureStarted(frame);
    tellCharacters(characters);
}

void ObjectWalk::ensureStarted(Frame& frame) {
    if (!frame.isStarted) {
        m_events.start(frame.name, m_attributes);
        m_attributes.clear();
        frame.isStarted = true;
    }
}

void ObjectWalk::tellCharacters(std::string_view text) {
    if (!text.empty()) {
        m_events.characters(text);
    }
}

void ObjectWalk::setContentId(std::string_view id) {
    m_attributes.push_back({"href", "", std::string("cid:").append(id)});
}

void ObjectWalk::close() {
    Frame& frame = m_frames.back();
    ensureStarted(frame);
    m_events.end(frame.name);
    m_names.resize(frame.firstName);
    m_frames.pop_back();
}

} // namespace mrl::detail
