#pragma once

#include "traffic/PathRules.h"
#include "traffic/Recording.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace mrl::tool {

/// Which files of two recordings are held against each other.
enum class Compared { requests, all };

/// Prints, call by call, what `now` has otherwise than `before`: envelopes by what they mean, attachments
/// byte by byte. Calls are matched by their session, service and number.
/// @param volatilePlaces differences there do not count.
/// @return how many calls differ.
/// @throws TrafficError when a file cannot be read.
std::size_t printDifferences(const Recording& before, const Recording& now, const PathRules& volatilePlaces,
                             Compared compared, std::ostream& out);

/// The lines that change, as "-" of `before` and "+" of `now`, with the unchanged line above each run.
std::vector<std::string> differingLines(const std::vector<std::string>& before,
                                        const std::vector<std::string>& now);

} // namespace mrl::tool
