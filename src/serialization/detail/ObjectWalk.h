#pragma once

#include "Toolkit/MRLSchemaTypeI.h"

#include "PLQStreams/PLQMemoryOutputStream.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

/// The name of an element: members and whole objects are in the namespace of the bus, items of arrays
/// in none.
struct ElementName {
    const char* localName; // borrowed
    bool isInBus;

    std::string qualified() const { return std::string(isInBus ? "bus:" : "").append(localName); }
};

struct ElementAttribute {
    const char* name; // with its prefix; borrowed
    const char* namespaceUri;
    std::string value;
};

/// What a walk tells of.
class ElementEvents {
public:
    ElementEvents() = default;
    ElementEvents(const ElementEvents&) = delete;
    ElementEvents& operator=(const ElementEvents&) = delete;
    virtual ~ElementEvents();

    virtual void start(const ElementName& name, const std::vector<ElementAttribute>& attributes) = 0;
    /// Never empty.
    virtual void characters(std::string_view text) = 0;
    virtual void end(const ElementName& name) = 0;
};

/// Tells of an object and all below it as elements, in the form of the wire but for its layout and its
/// escapes. An element starts when the first thing in it is known, since a reference to an attachment
/// is one of its attributes. The depth of the objects costs memory and never the thread's stack.
class ObjectWalk {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    /// What becomes of values that are not there.
    struct Rules {
        bool nilForNull;  ///< null becomes a nil element; else nothing
        bool nullArrays;  ///< a null array becomes an element; else it is a failure
        bool emptyArrays; ///< an array without items becomes an element; else nothing
    };

    /// @param events borrowed.
    ObjectWalk(ElementEvents& events, const Rules& rules)
        : m_events(events)
        , m_rules(rules) {}

    /// @throws HBLAssertError for a null name, for a type that has no form, and as the rules say.
    void run(void* object, ObjectType type, const char* name);

private:
    /// An element whose children are being told of.
    struct Frame {
        MRLSchemaTypeI* object;
        ElementName name;
        std::size_t firstName; // its children in m_names
        std::size_t nextName;
        std::size_t endName;
        bool isArray;
        bool isStarted; // else m_attributes are its
    };

    bool isWritten(void* object, ObjectType type) const;
    void declareNamespaces();
    void open(void* object, ObjectType type, const ElementName& name);
    void setType(void* object, ObjectType type);
    void tellSimple(void* value, ObjectType type, const ElementName& name);
    std::string_view textOf(const void* value, ObjectType type);
    std::string_view textOf(const char* text);
    void tellNextChild();
    void tellOwnText(Frame& frame, const char* text, ObjectType type);
    void ensureStarted(Frame& frame);
    void tellCharacters(std::string_view text);
    void setContentId(std::string_view id);
    void close();

    ElementEvents& m_events;
    const Rules m_rules;
    std::vector<Frame> m_frames;
    std::vector<const char*> m_names;           // the children of all frames, one run for each
    std::vector<ElementAttribute> m_attributes; // of the element about to start
    PLQMemoryOutputStream m_text{2048, 2048};   // a value that writes itself
    char m_digits[384];                         // the largest double has 309 before the point
};

} // namespace mrl::detail
