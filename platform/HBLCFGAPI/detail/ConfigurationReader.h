#pragma once

#include "HBLCFGAPI/HBLConfigurationDocument.h"
#include "HBLCFGAPI/HBLConfigurationNames.h"

#include <map>
#include <string>

namespace mrl::detail {

/// Walks one configuration and fills in what it says and what is wrong with it.
class ConfigurationReader {
public:
    /// Elements within elements; a deeper one made by hand is wrong, too.
    static constexpr unsigned s_maximumDepth = 64;

    /// @param into borrowed.
    ConfigurationReader(HBLConfigurationDocument& into, std::string source)
        : m_into(into)
        , m_source(std::move(source)) {}

    void readRoot(const HBLIDOM_Element& root);

private:
    void readParameter(const HBLIDOM_Element& parameter);
    void readQueryResult(const HBLIDOM_Element& root);
    /// The property `name` from its value element.
    void readValue(const std::string& name, const HBLIDOM_Element& value, const HBLIDOM_Element& at);
    void readTree(HBLConfigurationProperty& property, const HBLIDOM_Element& value,
                  const HBLConfigurationName* known);
    void readEntries(HBLConfigurationProperty& property, const HBLIDOM_Element& parent,
                     const std::string& path);
    void checkText(const HBLConfigurationProperty& property, const HBLConfigurationName& known);
    void checkTree(const HBLIDOM_Element& value, const HBLConfigurationName& known);

    /// Calls `take` for each child element; text between them is wrong.
    template <class Take>
    void forElements(const HBLIDOM_Element& parent, const char* expected, const Take& take);
    void wrong(const HBLIDOM_Element& at, const std::string& words);
    void doubtful(const HBLConfigurationPlace& place, const std::string& words);
    HBLConfigurationPlace placeOf(const HBLIDOM_Element& element) const;

    HBLConfigurationDocument& m_into; // borrowed
    std::string m_source;
    std::map<std::string, HBLConfigurationPlace> m_seen;
};

} // namespace mrl::detail
