#pragma once

#include "commands/Command.h"

#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

/// Says on standard error that there is no such `what`, with the nearest of `names`.
ExitCode notFound(std::string_view what, std::string_view name, const std::vector<std::string_view>& names);

} // namespace mrl::tool
