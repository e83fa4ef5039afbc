#pragma once

#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLSchemaTypeI.h"

#include "HBLCore/MRLExport.h"

#include <vector>

class MRLMessageParam;
class MRLPortTypeBinding;

/// One service of the bus: its operations, their messages and SOAP actions, and the declared types
/// of their parameters. Port types are singletons that live as long as the process; any thread may
/// use them. A binding is new, with a reference count of 0.
class MRL_EXPORT MRLPortTypeI {
public:
    using ObjectType = MRLSchemaTypeI::ObjectType;
    using MessageType = MRLMessageI::MessageType;

    MRLPortTypeI(const MRLPortTypeI&) = delete;
    MRLPortTypeI& operator=(const MRLPortTypeI&) = delete;
    virtual ~MRLPortTypeI();

    /// The declared type of a parameter of an operation; e_Unknown when there is none.
    /// @throws HBLAssertError for a null name.
    virtual ObjectType resolveOperationParamType(const char* pOperationName,
                                                 const char* pParamName) const = 0;

    /// A binding by the operation's name; the parameters choose between its signatures, the first
    /// that fits in declared order, and are set on the new input message. Parameters may be left
    /// out, but stand in the declared order; with none at all the first signature is taken.
    /// @throws MRLException when no signature of that name takes the parameters.
    virtual MRLPortTypeBinding* createPortTypeBinding(const char* pOperationName,
                                                      const std::vector<MRLMessageParam*>& params) const = 0;

    /// A binding with two new messages.
    /// @throws HBLAssertError when no operation takes that input.
    virtual MRLPortTypeBinding* createPortTypeBinding(const MessageType& inputType) const = 0;

    /// A binding that borrows both messages: the caller keeps them alive.
    /// @throws HBLAssertError when no operation takes the input, or it gives another output.
    virtual MRLPortTypeBinding* createPortTypeBinding(MRLMessageI& inputMessage,
                                                      MRLMessageI& outputMessage) const = 0;

    /// A binding that shares the input message, with a new output message.
    /// @throws HBLAssertError for null, and when no operation takes that input.
    virtual MRLPortTypeBinding* createPortTypeBinding(MRLMessageI* pInputMessage) const = 0;

    /// The name of the service, "agentService".
    virtual const char* getName() const = 0;

    /// The namespace of its operations.
    virtual const char* getBoundNamespace() const = 0;

protected:
    MRLPortTypeI() = default;
};
