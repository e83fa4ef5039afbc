#include "config/ConfigShow.h"

#include "config/Secrets.h"

#include "HBLCFGAPI/HBLConfigurationNames.h"
#include "ZORCrypto/ZORKeyStore.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

namespace mrl::tool {

namespace {

constexpr std::size_t PLACE_COLUMN = 56;

/// What goes before the property "keyStore", or null.
const char* namedKeyStore() {
    const char* const named = std::getenv(ZORKeyStore::s_locationVariable);
    return named == nullptr || *named == '\0' ? nullptr : named;
}

void printLine(const std::string& text, const std::string& place, std::ostream& out) {
    out << text << std::string(text.size() < PLACE_COLUMN ? PLACE_COLUMN - text.size() : 1, ' ') << "# "
        << place << '\n';
}

void printProperty(const HBLConfigurationProperty& property, std::ostream& out) {
    const std::string place = property.place.toString();
    if (!property.isTree) {
        printLine(shown("", property.name) + " = " + shown(property.name, property.value), place, out);
        return;
    }
    printLine(shown("", property.name), place, out);
    for (const HBLConfigurationEntry& entry : property.entries) {
        std::string line = "    " + shown("", entry.path);
        if (!entry.value.empty()) {
            line += " = " + shown(entry.path, entry.value);
        }
        printLine(line, entry.place.toString(), out);
    }
}

} // namespace

void printConfiguration(const HBLConfigurationDocument* document, std::ostream& out) {
    static const std::vector<HBLConfigurationProperty> NONE;
    const auto& given = document == nullptr ? NONE : document->getProperties();
    for (const HBLConfigurationName& known : HBLConfigurationNames::all()) {
        const auto found = std::ranges::find(given, known.name, &HBLConfigurationProperty::name);
        const char* const keyStore = known.name == "keyStore" ? namedKeyStore() : nullptr;
        if (keyStore != nullptr) {
            printLine("keyStore = " + shown("", keyStore), ZORKeyStore::s_locationVariable, out);
        } else if (found != given.end()) {
            printProperty(*found, out);
        } else if (known.defaultValue.empty()) {
            printLine(std::string(known.name), "not set", out);
        } else {
            printLine(std::string(known.name) + " = " + std::string(known.defaultValue), "default", out);
        }
    }
    for (const HBLConfigurationProperty& property : given) {
        if (HBLConfigurationNames::find(property.name) == nullptr) {
            printProperty(property, out);
        }
    }
}

} // namespace mrl::tool
