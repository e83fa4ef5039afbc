#pragma once

#include <chrono>
#include <functional>
#include <list>
#include <mutex>
#include <optional>
#include <string>

namespace mrl::bus {

/// Who asks, and what the bus lets pass for them. What an object allows is asked besides.
struct Caller {
    std::string passport; ///< empty without a logon
    std::string account;  ///< the search path of the account; empty without a logon, and for the anonymous
    bool mayChange = true;
};

/// The passports that the bus has given out, in memory. Any thread may call.
class Passports {
public:
    using Clock = std::chrono::steady_clock;

    struct Settings {
        std::chrono::seconds idleTime{3600}; ///< after which a passport that nobody used expires
        std::size_t most = 10000;            ///< at a time; the one longest unused goes first
        std::function<Clock::time_point()> now = [] { return Clock::now(); };
    };

    explicit Passports(Settings settings)
        : m_settings(std::move(settings)) {}

    /// A new passport.
    /// @param account empty for an anonymous one, which may look and run, and not change.
    Caller issue(const std::string& account);

    /// Who holds the passport, which counts as used; nothing when it has expired or was never given out.
    std::optional<Caller> use(const std::string& passport);

    /// Whether it is still good, without counting as used.
    bool isGood(const std::string& passport);

    void end(const std::string& passport);

private:
    struct Entry {
        Caller caller;
        Clock::time_point used;
    };

    std::list<Entry>::iterator find(const std::string& passport);

    const Settings m_settings;
    std::mutex m_mutex;
    std::list<Entry> m_entries; // the last used one first
};

} // namespace mrl::bus
