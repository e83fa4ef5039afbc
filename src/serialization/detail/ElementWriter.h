#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "serialization/detail/GatheringOutputStream.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

class ClassPlan;
struct MemberPlan;
struct SchemaTypeRow;

/// Writes values as elements. The way down the objects is kept on a stack of its own, so that the
/// depth of a graph costs memory and never the thread's stack.
class ElementWriter {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;

    /// How an element is written.
    struct Form {
        int indentLevel = -1; ///< one less than the tabs in front of it
        bool writeNamespaces = false;
        bool forceEmpty = false; ///< a null value becomes a nil element
        bool closeTag = true;
    };

    ElementWriter(GatheringOutputStream& out, bool writeNulls);

    void write(void* object, ObjectType type, const char* qName, const Form& form);

private:
    /// A name as it goes out: a fixed prefix and a text that is not copied.
    struct Name {
        std::string_view prefix;
        std::string_view local;
        const MemberPlan* plan = nullptr; // of a member, whose tags are ready
    };

    /// An element whose children are being written.
    struct Frame {
        MRLSchemaTypeI* object;
        const ClassPlan* plan; // of the object's class; null when it is asked child by child
        Name name;
        std::size_t first; // its children in m_names, with a plan in m_values
        std::size_t next;
        std::size_t end;
        int indentLevel;
        bool isArray;
        bool isComplex; // the children stand on lines of their own
        bool isTagOpen; // the start tag lacks its ">"
        bool closeTag;
    };

    void open(void* object, ObjectType type, const Name& name, const Form& form);
    void writeStart(void* object, ObjectType type, const SchemaTypeRow* row, const Name& name,
                    const Form& form);
    void writeSimple(void* value, ObjectType type);
    bool putReference(const char* text);
    void pushFrame(const Frame& frame, const char* firstName);
    void writeNextChild();
    void writeMembers(std::size_t depth);
    void writeMember(const MemberPlan& member, void* value);
    void writeOwnText(Frame& frame, const char* text, ObjectType type);
    void finishTag(Frame& frame);
    void closeFrame();
    void putClosingTag(const Name& name);
    void putEscaped(const char* text);

    GatheringOutputStream& m_out;
    const bool m_writeNulls;
    std::vector<Frame> m_frames;
    std::vector<const char*> m_names; // the children of frames without a plan, one run for each
    std::vector<void*> m_values;      // those of frames with a plan
    std::string m_arrayType;          // kept for its room
};

} // namespace mrl::detail
