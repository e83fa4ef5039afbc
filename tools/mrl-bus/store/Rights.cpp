#include "store/Rights.h"

#include <array>
#include <utility>

namespace mrl::bus {

namespace {

constexpr std::array<std::pair<std::string_view, Right>, 5> names{{{"read", Right::read},
                                                                   {"write", Right::write},
                                                                   {"execute", Right::execute},
                                                                   {"setPolicy", Right::setPolicy},
                                                                   {"traverse", Right::traverse}}};

}

std::optional<Right> rightFromText(std::string_view text) noexcept {
    for (const auto& [name, right] : names)
        if (name == text)
            return right;
    return std::nullopt;
}

std::vector<std::string> rightTexts(Rights rights) {
    std::vector<std::string> texts;
    for (const auto& [name, right] : names)
        if (has(rights, right))
            texts.emplace_back(name);
    return texts;
}

} // namespace mrl::bus
