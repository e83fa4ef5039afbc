#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrl::detail {

/// A document that tells the library what to do: a root element with elements of text in it, no attributes,
/// an XML declaration allowed.
class ControlDocument {
public:
    /// @throws ZORError with eZORBadDocument for anything else, with the place and what was expected.
    ControlDocument(const char* text, std::string_view expectedRoot);

    /// The text of the element, null when it is not there.
    const std::string* find(std::string_view name) const noexcept;
    /// @throws ZORError with eZORBadDocument when it is not there.
    const std::string& get(std::string_view name) const;
    /// The elements in their order, names and texts.
    const std::vector<std::pair<std::string, std::string>>& elements() const noexcept { return m_elements; }

private:
    std::string m_root;
    std::vector<std::pair<std::string, std::string>> m_elements;
};

} // namespace mrl::detail
