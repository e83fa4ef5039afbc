#pragma once

namespace mrl::tool {

/// Puts the number of retries into the property store, in place of what its file says. Before the first
/// session is made.
void setRetries(unsigned retries);

} // namespace mrl::tool
