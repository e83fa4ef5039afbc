#include "Toolkit/MRLUintString.h"

#include "HBLCore/HBLThreadCriticalSection.h"
#include "HBLCore/HBLThreadGuard.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <deque>

namespace {

// Names are asked for in runs, so each growth makes some more.
constexpr std::size_t growth = 100;

using Text = std::array<char, 11>; // ten digits of 32 bits, and the end

/// All texts made so far. A deque, since its elements keep their place while it grows.
class UintStrings {
public:
    static UintStrings& instance() {
        static auto* const texts = new UintStrings;
        return *texts;
    }

    const char* get(std::size_t i) {
        const HBLThreadGuard guard(m_lock);
        return at(i);
    }

    void append(std::vector<const char*>& names, std::size_t count) {
        const HBLThreadGuard guard(m_lock);
        for (std::size_t i = 0; i < count; ++i)
            names.push_back(at(i));
    }

private:
    const char* at(std::size_t i) {
        if (m_texts.size() <= i) {
            const std::size_t target = i + growth;
            while (m_texts.size() < target) {
                Text text{};
                std::to_chars(text.data(), text.data() + text.size() - 1,
                              static_cast<std::uint32_t>(m_texts.size()));
                m_texts.push_back(text);
            }
        }
        return m_texts[i].data();
    }

    HBLThreadCriticalSection m_lock;
    std::deque<Text> m_texts;
};

} // namespace

const char* MRL_getUintStringResource(std::size_t i) {
    return UintStrings::instance().get(i);
}

void mrl::detail::appendUintStrings(std::vector<const char*>& names, std::size_t count) {
    names.reserve(names.size() + count);
    UintStrings::instance().append(names, count);
}
