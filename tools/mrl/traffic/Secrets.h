#pragma once

#include "traffic/PathRules.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

struct XmlValue;

/// What must not be seen in a recording, and what stands in its place: "MASKED000001" and so on, one mask for
/// one secret everywhere. A mask is a good token, base64 text and part of a URL, so that what is masked can
/// still be read by whoever reads the recording.
class Secrets {
public:
    explicit Secrets(PathRules places)
        : m_places(std::move(places)) {}

    /// Hides a value wherever it stands, however short.
    void addValue(const std::string& value);

    /// Notes what stands in the secret places of XML.
    void learn(std::string_view xml);

    /// How many different values are hidden.
    std::size_t size() const { return m_masks.size(); }

    /// XML with masks in the secret places, and wherever else a text or attribute holds a secret. Every other
    /// byte stays.
    std::string maskXml(std::string_view xml);

    /// Any text with masks in place of the secrets, however they are written: as they are, or as XML, URLs,
    /// base64 or UTF-16 have them.
    /// @param keepsLength masks become as long as what they hide: bytes that tell others where they are stay
    ///        right.
    std::string maskText(std::string_view text, bool keepsLength);

    /// How many masks were put.
    std::size_t masked() const { return m_masked; }

private:
    /// One way in which a secret may be written.
    struct Form {
        std::string secret;
        std::string mask;
        std::string longMask; // as long as the secret
    };

    bool isSecret(const XmlValue& value) const;
    const std::string& maskOf(const std::string& value);
    void addForms(const std::string& value, const std::string& mask);

    PathRules m_places;
    std::map<std::string, std::string> m_masks; // by secret
    std::vector<Form> m_forms;                  // the longest first
    std::size_t m_masked = 0;
};

} // namespace mrl::tool
