#include "commands/NotFound.h"

#include "lookup/Nearest.h"

#include <iostream>

namespace mrl::tool {

ExitCode notFound(std::string_view what, std::string_view name, const std::vector<std::string_view>& names) {
    std::cerr << "mrl: there is no " << what << " '" << name << "'" << proposal(name, names) << '\n';
    return e_No;
}

} // namespace mrl::tool
