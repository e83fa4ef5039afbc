#pragma once

#include "Toolkit/MRLMessageI.h"

#include "HBLCore/MRLExport.h"

/// Makes messages from their type, and tells their declared parameters. Without state; thread-safe.
class MRL_EXPORT MRLMessageFactory {
public:
    using MessageType = MRLMessageI::MessageType;

    /// One declared parameter; a list ends with a row whose name is null.
    struct MRLParamDescriptor {
        const char* paramName;
        MRLSchemaTypeI::ObjectType paramType;
    };

    static MRLMessageFactory& getInstance();
    virtual ~MRLMessageFactory();

    MRLMessageFactory(const MRLMessageFactory&) = delete;
    MRLMessageFactory& operator=(const MRLMessageFactory&) = delete;

    /// A new message with a reference count of 0; null for a type that no message has.
    /// @throws HBLAssertError for e_Unknown; HBLOutOfMemoryError.
    MRLMessageI* create(const MessageType& msgType);

    /// The declared parameters in the order of the operation's signature; null when the type has no
    /// list. The rows live as long as the process.
    /// @throws HBLAssertError for e_Unknown.
    const MRLParamDescriptor* getParameterTypes(const MessageType& msgType);

private:
    using Creator = MRLMessageI* (*)();

    MRLMessageFactory() = default;

    /// Generated: one choice over the types of all messages. Null for any other number.
    static Creator creatorOf(MessageType msgType);
    static const MRLParamDescriptor* parametersOf(MessageType msgType);
};
