#pragma once

#include "traffic/Recording.h"

#include <string>
#include <vector>

namespace mrl::tool {

/// Something about a recording that its reader should know.
struct Finding {
    enum Weight : bool {
        remark = false, ///< it is as it should be, and yet playing it back has a limit
        problem = true, ///< something is missing or broken
    };
    Weight weight;
    std::string place; ///< the call or the file
    std::string words;
};

/// What is incomplete, broken or limited: numbers and files that are missing, envelopes that cannot be read
/// or belong to another operation than their name says, attachments that nothing is bound to.
/// @throws TrafficError when a file cannot be read.
std::vector<Finding> verify(const Recording& recording);

} // namespace mrl::tool
