#pragma once

#include "HBLCFGAPI/HBLConfigurationPlace.h"
#include "HBLIDOM/HBLIDOM_Element.h"

#include <string>
#include <vector>

namespace mrl::detail {
class ConfigurationReader;
} // namespace mrl::detail

/// Something with a name, or an item of a list, inside a property that is a tree.
struct HBLConfigurationEntry {
    /// The names from the outermost on, joined by "/": "cryptoProvider/Vantor/keySize". An item has its
    /// number, from 1 on: "1".
    std::string path;
    std::string value; ///< UTF-8; empty for an entry that only holds others
    HBLConfigurationPlace place;
};

/// One property as a configuration has it.
struct HBLConfigurationProperty {
    std::string name;
    bool isTree = false;
    std::string value; ///< UTF-8: the text, or the XML of a tree
    HBLConfigurationPlace place;
    std::vector<HBLConfigurationEntry> entries = {}; ///< of a tree
};

/// Something about a configuration that somebody should look at.
struct HBLConfigurationFinding {
    enum Weight : bool {
        eDoubtful = false, ///< works, but hardly as it is meant
        eWrong = true,     ///< the configuration cannot be used
    };
    Weight weight;
    HBLConfigurationPlace place;
    std::string words; ///< what was expected, what was found
};

/// What a configuration file says, and what is wrong with it. docs/configuration.md describes the form.
/// Hostile files cost little: no document type, nothing outside is read, size and depth are limited.
class MRL_EXPORT HBLConfigurationDocument {
public:
    /// Reads a file. Whatever is wrong becomes findings.
    static HBLConfigurationDocument read(const std::string& path);

    /// Takes a document from memory.
    /// @param source its name in places.
    static HBLConfigurationDocument fromElement(const HBLIDOM_Element& root, const std::string& source);

    /// In the order of the document.
    const std::vector<HBLConfigurationProperty>& getProperties() const noexcept { return m_properties; }
    const std::vector<HBLConfigurationFinding>& getFindings() const noexcept { return m_findings; }

    /// These properties are laid over others, rather than taking the place of all.
    bool isOverlay() const noexcept { return m_isOverlay; }

    /// @throws HBLConfigurationError for the first finding that is wrong, if any.
    void requireSound() const;

private:
    friend class mrl::detail::ConfigurationReader;
    HBLConfigurationDocument() = default;

    std::vector<HBLConfigurationProperty> m_properties;
    std::vector<HBLConfigurationFinding> m_findings;
    bool m_isOverlay = false;
};
