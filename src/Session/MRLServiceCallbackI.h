#pragma once

#include "HBLCore/MRLExport.h"

class MRLPortTypeBinding;
class PLQOutputStream;

/// What a host implements that serves requests of its own process without the bus.
class MRL_EXPORT MRLServiceCallbackI {
public:
    virtual ~MRLServiceCallbackI();

    /// Answers one call.
    /// @param binding the call, its input message filled in.
    /// @param out takes the complete reply envelope; not kept beyond the call.
    virtual void handleRequest(MRLPortTypeBinding& binding, PLQOutputStream& out) const = 0;
};
