#pragma once

#include <string>
#include <vector>

namespace mrl::bus {

/// What a report shows, in UTF-8.
struct Table {
    std::string title;
    std::string subtitle;
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows; ///< each as long as columns
};

} // namespace mrl::bus
