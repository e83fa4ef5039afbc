#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace mrl::bus {

struct StoreObject;

/// A text in one language; the locale is a language tag such as "en" or "de-ch".
struct LocalText {
    std::string locale;
    std::string text;
    bool operator==(const LocalText&) const = default;
};

/// The bytes of a document.
struct Binary {
    std::string bytes;
    bool operator==(const Binary&) const = default;
};

/// Other objects of the store. Writers need the search path of each only.
using References = std::vector<StoreObject>;

/// The value of a property. monostate stands for "no value": on update it clears the property.
using PropertyValue = std::variant<std::monostate, std::string, std::int64_t, bool, double,
                                   std::vector<LocalText>, std::vector<std::string>, Binary, References>;

/// An object as it goes in and out of the store: its class and those of its properties that were asked
/// for, or are to be set, by schema name.
struct StoreObject {
    std::string objectClass;
    std::map<std::string, PropertyValue, std::less<>> properties;

    bool operator==(const StoreObject&) const = default;

    /// The property as T, null when it is absent or of another kind.
    template <class T>
    const T* get(std::string_view name) const {
        const auto found = properties.find(name);
        return found == properties.end() ? nullptr : std::get_if<T>(&found->second);
    }

    /// The search path, empty when it was not asked for.
    std::string searchPath() const {
        const auto* path = get<std::string>("searchPath");
        return path != nullptr ? *path : std::string();
    }
};

} // namespace mrl::bus
