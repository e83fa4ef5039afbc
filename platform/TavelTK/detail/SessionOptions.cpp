#include "TavelTK/detail/SessionOptions.h"

#include "TavelTK/detail/Failure.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <string_view>

namespace mrl::detail {

namespace {

struct Property {
    std::string_view name;
    std::int64_t SessionOptions::*member;
    std::int64_t least;
    std::int64_t most;
};

constexpr std::int64_t s_anyTime = std::numeric_limits<std::int32_t>::max();
constexpr std::int64_t s_anySize = std::numeric_limits<std::int64_t>::max();

constexpr std::array s_properties{
    Property{"send-content-length", &SessionOptions::sendContentLength, 0, 1},
    Property{"chunk-size", &SessionOptions::chunkSize, 1, 16777216},
    Property{"connect-time-limit", &SessionOptions::connectTimeLimit, 1, s_anyTime},
    Property{"send-time-limit", &SessionOptions::sendTimeLimit, 0, s_anyTime},
    Property{"receive-time-limit", &SessionOptions::receiveTimeLimit, 0, s_anyTime},
    Property{"max-header-bytes", &SessionOptions::maxHeaderBytes, 256, 1048576},
    Property{"max-envelope-bytes", &SessionOptions::maxEnvelopeBytes, 0, s_anySize},
    Property{"max-reply-bytes", &SessionOptions::maxReplyBytes, 0, s_anySize},
    Property{"max-parts", &SessionOptions::maxParts, 0, s_anySize}};

[[noreturn]] void refuse(std::string_view cause) {
    fail(TavelTKError::badArgument, TavelTKPhase::prepare, {}, cause);
}

const Property& find(std::string_view name) {
    const auto* const found = std::ranges::find(s_properties, name, &Property::name);
    if (found != s_properties.end())
        return *found;
    std::string known;
    for (const Property& property : s_properties)
        known += (known.empty() ? "" : ", ") + std::string(property.name);
    refuse("there is no property '" + printable(name) + "'; the properties are " + known);
}

} // namespace

void SessionOptions::set(const std::string& name, std::int64_t value) {
    const Property& property = find(name);
    if (value < property.least || value > property.most)
        refuse("the property '" + name + "' cannot be " + std::to_string(value) + "; give " +
               std::to_string(property.least) + " to " + std::to_string(property.most));
    this->*property.member = value;
}

void SessionOptions::set(const std::string& name, const std::string& value) {
    find(name);
    std::int64_t number = 0;
    const char* const end = value.data() + value.size();
    const auto [stop, error] = std::from_chars(value.data(), end, number);
    if (error != std::errc{} || stop != end)
        refuse("the property '" + name + "' cannot be '" + printable(value) + "'; give a whole number");
    set(name, number);
}

} // namespace mrl::detail
