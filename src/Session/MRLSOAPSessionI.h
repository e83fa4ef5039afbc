#pragma once

#include "Session/MRLAttachmentList.h"

#include "HBLCore/MRLExport.h"

#include <string>

class MRLPortTypeBinding;
class MRLServiceCallbackI;
class MRLTavelHeader;

/// The road from a typed message to the bus.
class MRL_EXPORT MRLSOAPSessionI {
public:
    /// How the envelope goes out.
    enum MRLSOAPTrusted {
        eMRLSOAPUntrusted = 0,       ///< in clear
        eMRLSOAPTrusted = 1,         ///< encrypted
        eMRLSOAPTrustedOnDenial = 2, ///< in clear, and once more encrypted when permission is denied
    };

    virtual ~MRLSOAPSessionI();

    /// The endpoint of the calls to come; null or an empty text goes back to the endpoint rules.
    virtual void setURI(const char* uri) = 0;
    virtual void setURI(const std::string& uri) = 0;

    /// Sends the input message of `binding` and fills its output message.
    /// @param attachments documents that travel with the request; may be empty.
    /// @param callback answers in this process when set; see MRLServiceCallbackI.
    /// @throws MRLSOAPFaultException when the service answers with a fault; it keeps the fault alive.
    /// @throws TavelTKException when the exchange itself fails.
    /// @throws HBLAssertError for a call that may not be made.
    virtual void submit(MRLPortTypeBinding& binding, const MRLAttachmentList& attachments,
                        MRLSOAPTrusted trusted, const MRLServiceCallbackI* callback) const = 0;

    /// The same without attachments.
    virtual void submit(MRLPortTypeBinding& binding, MRLSOAPTrusted trusted,
                        const MRLServiceCallbackI* callback) const = 0;

    /// The header lent to requests that have none of their own; may be null.
    virtual const MRLTavelHeader* getTavelHeader() const = 0;
};
