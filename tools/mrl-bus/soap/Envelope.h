#pragma once

#include <string>

class MRLPortTypeBinding;

namespace mrl::bus {

/// The reply of a binding as an envelope.
std::string replyEnvelope(MRLPortTypeBinding& binding);

} // namespace mrl::bus
