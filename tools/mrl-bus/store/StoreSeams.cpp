#include "store/StoreSeams.h"

#include <array>
#include <cstdio>
#include <ctime>
#include <random>

namespace mrl::bus {

namespace {

std::string systemTime() {
    const auto now = std::chrono::system_clock::now();
    const auto seconds = std::chrono::floor<std::chrono::seconds>(now);
    const auto milliseconds = std::chrono::duration_cast<std::chrono::milliseconds>(now - seconds).count();
    const std::time_t time = std::chrono::system_clock::to_time_t(seconds);
    std::tm utc{};
    gmtime_r(&time, &utc);
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ", utc.tm_year + 1900,
                  utc.tm_mon + 1, utc.tm_mday, utc.tm_hour, utc.tm_min, utc.tm_sec,
                  static_cast<int>(milliseconds));
    return text.data();
}

std::string randomId() {
    std::random_device source;
    std::array<char, 34> text{};
    std::snprintf(text.data(), text.size(), "i%08X%08X%08X%08X", source(), source(), source(), source());
    return text.data();
}

} // namespace

StoreSeams StoreSeams::ofSystem() {
    return {&systemTime, &randomId, std::chrono::seconds(10)};
}

} // namespace mrl::bus
