#include "soap/Passports.h"

#include "store/StoreSeams.h"

#include <algorithm>

namespace mrl::bus {

Caller Passports::issue(const std::string& account) {
    Caller caller{StoreSeams::ofSystem().newId(), account, !account.empty()};
    const std::lock_guard lock(m_mutex);
    m_entries.push_front({caller, m_settings.now()});
    if (m_entries.size() > m_settings.most)
        m_entries.pop_back();
    return caller;
}

/// Behind what has expired, which goes.
std::list<Passports::Entry>::iterator Passports::find(const std::string& passport) {
    const Clock::time_point oldest = m_settings.now() - m_settings.idleTime;
    while (!m_entries.empty() && m_entries.back().used < oldest)
        m_entries.pop_back();
    return std::ranges::find_if(m_entries,
                                [&](const Entry& entry) { return entry.caller.passport == passport; });
}

std::optional<Caller> Passports::use(const std::string& passport) {
    const std::lock_guard lock(m_mutex);
    const auto found = find(passport);
    if (found == m_entries.end())
        return std::nullopt;
    found->used = m_settings.now();
    m_entries.splice(m_entries.begin(), m_entries, found);
    return found->caller;
}

bool Passports::isGood(const std::string& passport) {
    const std::lock_guard lock(m_mutex);
    return find(passport) != m_entries.end();
}

void Passports::end(const std::string& passport) {
    const std::lock_guard lock(m_mutex);
    const auto found = find(passport);
    if (found != m_entries.end())
        m_entries.erase(found);
}

} // namespace mrl::bus
