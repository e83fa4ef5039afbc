// Files, paths and commands: the operations of MRLHelper that name, find and start something.

#include "Session/MRLHelper.h"

void MRLHelper::shortenFileName(std::string& name) {
    constexpr std::size_t limit = 130;
    constexpr std::size_t kept = 111;
    if (name.size() <= limit) {
        return;
    }
    const std::size_t dot = name.rfind('.');
    std::string shortened = name.substr(0, kept) + "..." + "." + std::to_string(getCrc(name.c_str()));
    if (dot != std::string::npos) {
        // A dot within the new name stands for what the new name holds from there on.
        shortened += dot > shortened.size() ? name.substr(dot) : shortened.substr(dot);
    }
    name = std::move(shortened);
}
