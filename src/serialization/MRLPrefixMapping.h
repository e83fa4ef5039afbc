#pragma once

#include <string>
#include <vector>

/// One namespace prefix in scope.
struct MRLPrefixMapping {
    std::u16string prefix;
    std::u16string uri;
};

/// The prefixes in scope, outermost first.
using MRLPrefixMappings = std::vector<MRLPrefixMapping>;
