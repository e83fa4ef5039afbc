#pragma once

#include "logipf2/detail/LineWriterI.h"

namespace mrl::detail {

/// Lines on standard error, each in one write.
class StandardError final : public LineWriterI {
public:
    Result write(spdlog::level::level_enum severity, std::string_view line) override;
    std::string describe() const override { return "standard error"; }
};

} // namespace mrl::detail
