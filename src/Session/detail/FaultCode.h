#pragma once

class MRLSOAPFault;
class MRLSOAPFaultException;

namespace mrl::detail {

/// The error code of the fault's first detail, documented or not; null when there is none.
const char* firstErrorCode(const MRLSOAPFault& fault);

/// Whether a fault belongs into the log of failures: it is not part of a logon dialogue, which fails by
/// design until the user has answered.
bool concernsTheCaller(const MRLSOAPFaultException& exception);

} // namespace mrl::detail
