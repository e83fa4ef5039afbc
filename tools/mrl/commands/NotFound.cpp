#include "commands/NotFound.h"

#include "lookup/Nearest.h"

#include <iostream>

namespace mrl::tool {

ExitCode notFound(std::string_view what, std::string_view name, const std::vector<std::string_view>& names) {
    std::cerr << "mrl: there is no " << what << " '" << name << "'";
    const char* separator = "; did you mean ";
    for (const std::string_view near : nearest(name, names)) {
        std::cerr << separator << near;
        separator = ", ";
    }
    std::cerr << '\n';
    return e_No;
}

} // namespace mrl::tool
