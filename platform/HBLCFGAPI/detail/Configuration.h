#pragma once

#include "HBLCFGAPI/HBLConfigurationDocument.h"
#include "HBLCFGAPI/IHBLConfiguration.h"

#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>

namespace mrl::detail {

/// The service: complete states that take the place of one another. A state is never changed, so that a
/// question needs the lock for a pointer only.
class Configuration final : public IHBLConfiguration {
public:
    void configure(const HBLIDOM_Element& element) override;
    void load() override;
    I18NString getProperty(const I18NString& name, const I18NString* defaultValue) const override;
    HBLIDOM_Node getPropertyElement(const I18NString& name, const HBLIDOM_Node* defaultValue) const override;

    /// The property with the places of its parts; null when it is not configured. The object is another one
    /// once anything was loaded or configured anew, and the same until then.
    std::shared_ptr<const HBLConfigurationProperty> find(std::string_view name) const;

private:
    struct State {
        std::map<std::string, HBLConfigurationProperty, std::less<>> properties;
    };
    using Shared = std::shared_ptr<const State>;

    static Shared readDefaultLocation();
    static Shared laidOver(const State* below, const HBLConfigurationDocument& document);
    /// The state, loaded if there is none.
    Shared getState() const;

    mutable std::mutex m_lock;
    mutable Shared m_state; // null until loaded or configured
};

/// Configuration::find of the process's service.
std::shared_ptr<const HBLConfigurationProperty> configuredProperty(std::string_view name);

} // namespace mrl::detail
