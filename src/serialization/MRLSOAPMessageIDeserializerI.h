#pragma once

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/MRLExport.h"

#include <vector>

class MRLMessageI;
class MRLPortTypeBinding;
class MRLPortTypeI;
class MRLTavelHeader;
class MRL_AttachmentHandler;
class PLQInputStream;

/// Reads envelopes. One parse at a time; usable again after any failure.
class MRL_EXPORT MRLSOAPMessageIDeserializerI {
public:
    MRLSOAPMessageIDeserializerI() = default;
    MRLSOAPMessageIDeserializerI(const MRLSOAPMessageIDeserializerI&) = delete;
    MRLSOAPMessageIDeserializerI& operator=(const MRLSOAPMessageIDeserializerI&) = delete;
    virtual ~MRLSOAPMessageIDeserializerI();

    /// Reads the envelope of a known exchange into `message`, whose registry owns what is made.
    /// @throws MRLSOAPFaultException when the envelope carries a fault; the message then stays as it was.
    ///         MRLException for anything that is not a readable envelope: 0xa6441f8b with the parser's
    ///         words for bytes that are no XML or exceed a limit, other numbers for what the XML says.
    ///         What the stream throws goes on as it is.
    virtual void parse(PLQInputStream& stream, MRLPortTypeBinding& binding, MRLMessageI& message) = 0;

    /// Reads the envelope of a request, finds its operation among `portTypes`, and gives the binding,
    /// whose input message holds the parameters and the registry.
    /// @throws as the other; also when no port type has the operation.
    virtual void parse(PLQInputStream& stream, const std::vector<MRLPortTypeI*>& portTypes,
                       HBLSmartPointer<MRLPortTypeBinding>& bindingOut) = 0;

    /// The header of the last parse, also of one that failed; null when there was none. The registry
    /// of that parse owns it.
    virtual MRLTavelHeader* getTavelHeader() const = 0;

    /// Takes the references to attachments; borrowed, null for none. Call before parse().
    virtual void setAttachmentHandler(MRL_AttachmentHandler* handler) = 0;
};
