#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "serialization/detail/GatheringOutputStream.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

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
    };

    /// An element whose children are being written.
    struct Frame {
        MRLSchemaTypeI* object;
        Name name;
        std::size_t firstName; // its children in m_names
        std::size_t nextName;
        std::size_t endName;
        int indentLevel;
        bool isArray;
        bool isComplex; // the children stand on lines of their own
        bool isTagOpen; // the start tag lacks its ">"
        bool closeTag;
    };

    void open(void* object, ObjectType type, const Name& name, const Form& form);
    void writeStart(void* object, ObjectType type, const Name& name, const Form& form, bool isArray);
    void writeSimple(void* value, ObjectType type, const Name& name, const Form& form);
    void pushFrame(void* object, const Name& name, const Form& form, bool isArray, std::size_t firstName);
    void writeNextChild();
    void writeOwnText(Frame& frame, const char* text, ObjectType type);
    void finishTag(Frame& frame);
    void closeFrame();
    void putClosingTag(const Name& name);
    void putEscaped(const char* text);

    GatheringOutputStream& m_out;
    const bool m_writeNulls;
    std::vector<Frame> m_frames;
    std::vector<const char*> m_names; // the children of all frames, one run for each
    std::string m_arrayType;          // kept for its room
};

} // namespace mrl::detail
