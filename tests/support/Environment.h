#pragma once

#include <cstdlib>
#include <string>
#include <utility>

namespace mrl::test {

/// An environment variable with a value of its own while this lives; not set afterwards.
class Variable {
public:
    Variable(std::string name, const std::string& value)
        : m_name(std::move(name)) {
        ::setenv(m_name.c_str(), value.c_str(), 1);
    }
    ~Variable() { ::unsetenv(m_name.c_str()); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

private:
    std::string m_name;
};

} // namespace mrl::test
