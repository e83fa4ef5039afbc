#pragma once

#include "Toolkit/MRLSchemaTypeI.h"
#include "call/JsonInput.h"

#include <string>

class MRLMessageI;
class MRL_Streamable;

namespace mrl::tool {

/// What becomes of a value that is a stream: an attachment of a reply.
class StreamKeeper {
public:
    virtual ~StreamKeeper() = default;
    StreamKeeper() = default;
    StreamKeeper(const StreamKeeper&) = delete;
    StreamKeeper& operator=(const StreamKeeper&) = delete;

    /// The JSON that stands for `stream`, the value at `path`.
    /// @param isText whether the value's type is a text, else binary.
    virtual Json keep(const MRL_Streamable& stream, const std::string& path, bool isText) = 0;
};

/// A message as JSON, in the form that ValueBuilder reads: parameters and members that are not set are left
/// out, and "@type" stands where an object is of another class than the one declared.
class JsonOutput {
public:
    explicit JsonOutput(StreamKeeper& keeper)
        : m_keeper(keeper) {}

    Json parameters(MRLMessageI& message);

    /// @param declared what is known of the object already; e_Unknown names its class in any case.
    Json object(MRLSchemaTypeI& object, MRLSchemaTypeI::ObjectType declared, const std::string& path);

private:
    Json value(MRLSchemaTypeI::ObjectType declared, const void* value, const std::string& path);
    Json text(const char* text, const std::string& path);
    Json array(MRLSchemaTypeI& array, const std::string& path);
    void members(MRLSchemaTypeI& object, const std::string& path, Json& to);

    StreamKeeper& m_keeper;
};

} // namespace mrl::tool
