#pragma once

#include <iosfwd>
#include <string_view>

namespace mrl::tool {

/// All services with the number of their operations.
void listServices(std::ostream& out);

/// The operations of a service with the parameters of request and reply.
/// @return false, with nothing written, when there is no service of that name.
bool listOperations(std::string_view service, std::ostream& out);

/// Everything of that name: types, messages, services, operations.
/// @return false, with nothing written, when there is nothing.
bool describe(std::string_view name, std::ostream& out);

} // namespace mrl::tool
