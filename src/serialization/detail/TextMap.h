#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace mrl::detail {

/// Whether a terminated text is `known`; it is looked at no further than they are the same.
inline bool isText(const char16_t* text, std::u16string_view known) {
    std::size_t i = 0;
    while (i < known.size() && text[i] == known[i]) {
        ++i;
    }
    return i == known.size() && text[i] == u'\0';
}

/// What the short UTF-16 texts of a document stand for, so that each is worked out once. It takes what
/// finds room and no more: a document made of ever new texts, or of texts made to collide, costs as much
/// as one without the map.
template <class Value, std::size_t Slots = 128>
class TextMap {
public:
    struct Entry {
        std::u16string text;
        Value value{};
    };

    /// Null for a text not known. The place is good until clear().
    Entry* find(std::u16string_view text) {
        if (m_slots == nullptr) {
            return nullptr;
        }
        const std::uint64_t hash = hashOf(text);
        for (std::size_t probe = 0; probe < probes; ++probe) {
            Slot& slot = (*m_slots)[(hash + probe) % Slots];
            if (!slot.isUsed) {
                return nullptr;
            }
            if (slot.text.size() == text.size() &&
                std::memcmp(slot.text.data(), text.data(), text.size() * sizeof(char16_t)) == 0) {
                return &slot;
            }
        }
        return nullptr;
    }

    /// Keeps a text not known so far; null when there is no room for it.
    Entry* add(std::u16string_view text, Value value) {
        if (m_slots == nullptr) {
            m_slots = std::make_unique<std::array<Slot, Slots>>();
        }
        const std::uint64_t hash = hashOf(text);
        for (std::size_t probe = 0; probe < probes; ++probe) {
            Slot& slot = (*m_slots)[(hash + probe) % Slots];
            if (!slot.isUsed) {
                slot = {{std::u16string(text), std::move(value)}, true};
                return &slot;
            }
        }
        return nullptr;
    }

    void clear() { m_slots.reset(); }

private:
    struct Slot : Entry {
        bool isUsed = false;
    };
    static constexpr std::size_t probes = 8;

    static std::uint64_t hashOf(std::u16string_view text) {
        constexpr std::uint64_t factor = 0x9E3779B97F4A7C15u;
        std::uint64_t hash = text.size();
        for (; text.size() >= 4; text.remove_prefix(4)) {
            std::uint64_t units = 0;
            std::memcpy(&units, text.data(), sizeof units);
            hash = (hash ^ units) * factor;
        }
        for (const char16_t unit : text) {
            hash = (hash ^ unit) * factor;
        }
        return hash >> 32;
    }

    std::unique_ptr<std::array<Slot, Slots>> m_slots;
};

} // namespace mrl::detail
