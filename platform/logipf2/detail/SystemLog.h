#pragma once

#include "logipf2/detail/LineWriterI.h"

namespace mrl::detail {

/// Lines for the system's log. It is never opened or closed here: the name that a host has given it, and its
/// options, are the host's.
class SystemLog final : public LineWriterI {
public:
    explicit SystemLog(int facility)
        : m_facility(facility) {}

    Result write(spdlog::level::level_enum severity, std::string_view line) override;
    std::string describe() const override { return "system log"; }

private:
    int m_facility;
};

} // namespace mrl::detail
