#include "HBLCFGAPI/detail/Configuration.h"

#include "HBLCFGAPI/HBLConfigurationError.h"
#include "HBLCFGAPI/HBLConfigurationFactory.h"
#include "HBLCFGAPI/HBLConfigurationNames.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmDir.h"
#include "HBLIDOM/HBLIDOM_Parser.h"

#include <cerrno>
#include <system_error>

namespace mrl::detail {

void Configuration::configure(const HBLIDOM_Element& element) {
    hblRethrowing("IHBLConfiguration::configure", [&] {
        const auto document = HBLConfigurationDocument::fromElement(element, "the configuration element");
        document.requireSound();
        if (!document.isOverlay()) {
            Shared state = laidOver(nullptr, document);
            const std::lock_guard guard(m_lock);
            m_state = std::move(state);
            return;
        }
        load();
        const std::lock_guard guard(m_lock);
        m_state = laidOver(m_state.get(), document);
    });
}

void Configuration::load() {
    hblRethrowing("IHBLConfiguration::load", [&] { getState(); });
}

I18NString Configuration::getProperty(const I18NString& name, const I18NString* defaultValue) const {
    return hblRethrowing("IHBLConfiguration::getProperty", [&] {
        const Shared state = getState();
        const std::string key = name.toUtf8();
        if (const auto found = state->properties.find(key); found != state->properties.end()) {
            return I18NString(found->second.value);
        }
        if (defaultValue != nullptr) {
            return *defaultValue;
        }
        const HBLConfigurationName* const known = HBLConfigurationNames::find(key);
        return known == nullptr ? I18NString() : I18NString(known->defaultValue);
    });
}

HBLIDOM_Node Configuration::getPropertyElement(const I18NString& name,
                                               const HBLIDOM_Node* defaultValue) const {
    return hblRethrowing("IHBLConfiguration::getPropertyElement", [&]() -> HBLIDOM_Node {
        const Shared state = getState();
        const auto found = state->properties.find(name.toUtf8());
        if (found == state->properties.end() || !found->second.isTree) {
            return defaultValue == nullptr ? HBLIDOM_Node() : *defaultValue;
        }
        const std::string& text = found->second.value;
        HBLIDOM_Parser parser;
        HBLIDOM_Document document; // the caller's: documents may not be shared between threads
        if (parser.parse(text.data(), text.size(), document) == 0) {
            HBL_THROW(HBLConfigurationError(found->second.place,
                                            "the property \"" + found->second.name +
                                                "\" cannot be read back: " + parser.errorString().toUtf8()),
                      "IHBLConfiguration::getPropertyElement");
        }
        return document.getDocumentElement();
    });
}

std::shared_ptr<const HBLConfigurationProperty> Configuration::find(std::string_view name) const {
    return hblRethrowing("Configuration::find", [&] {
        const Shared state = getState();
        const auto found = state->properties.find(name);
        return found == state->properties.end()
                   ? nullptr
                   : std::shared_ptr<const HBLConfigurationProperty>(state, &found->second);
    });
}

std::shared_ptr<const HBLConfigurationProperty> configuredProperty(std::string_view name) {
    // The factory makes no other kind.
    return static_cast<const Configuration&>(HBLConfigurationFactory::getInstance()).find(name);
}

Configuration::Shared Configuration::getState() const {
    const std::lock_guard guard(m_lock);
    if (m_state == nullptr) {
        m_state = readDefaultLocation();
    }
    return m_state;
}

Configuration::Shared Configuration::readDefaultLocation() {
    const auto [path, isFromEnvironment] = HBLConfigurationFactory::getDefaultLocation();
    if (HBLFmDir::exists(path.c_str(), 0) == 0) {
        if (const int error = errno; error != ENOENT && error != ENOTDIR) { // it may be there
            HBL_THROW(HBLConfigurationError({path, 0, 0}, "expected a configuration file, or none; it "
                                                          "cannot be looked for: " +
                                                              std::generic_category().message(error)),
                      "IHBLConfiguration::load");
        }
        if (isFromEnvironment) {
            HBL_THROW(
                HBLConfigurationError(
                    {path, 0, 0}, std::string("expected a configuration file, as the environment variable ") +
                                      HBLConfigurationFactory::s_locationVariable +
                                      " names it; correct the variable, or unset it for the defaults"),
                "IHBLConfiguration::load");
        }
        return std::make_shared<const State>();
    }
    const auto document = HBLConfigurationDocument::read(path);
    document.requireSound();
    return laidOver(nullptr, document);
}

Configuration::Shared Configuration::laidOver(const State* below, const HBLConfigurationDocument& document) {
    auto state = below == nullptr ? std::make_shared<State>() : std::make_shared<State>(*below);
    for (const HBLConfigurationProperty& property : document.getProperties()) {
        state->properties.insert_or_assign(property.name, property);
    }
    return state;
}

} // namespace mrl::detail
