#pragma once

#include <stdexcept>
#include <string>

namespace mrl::bus {

/// A request that cannot be read, and why.
class Unreadable : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// A request that a service refuses for reasons of its own; README.md lists the codes.
class Refusal : public std::runtime_error {
public:
    Refusal(std::string code, const std::string& message)
        : std::runtime_error(message)
        , m_code(std::move(code)) {}

    const std::string& code() const { return m_code; }

private:
    std::string m_code;
};

} // namespace mrl::bus
