#pragma once

#include <spdlog/common.h>

#include <string>
#include <string_view>

namespace mrl::detail {

/// Where the lines of one sink end up. Calls come one at a time.
class LineWriterI {
public:
    struct Result {
        bool written;
        std::string trouble; ///< what is wrong, also when the line could be written; empty when nothing is
    };

    virtual ~LineWriterI() = default;

    /// @param line with its line feed.
    virtual Result write(spdlog::level::level_enum severity, std::string_view line) = 0;

    /// In a child process, before its first line.
    virtual void forked() {}

    /// What to call it in a message to the operator.
    virtual std::string describe() const = 0;
};

} // namespace mrl::detail
