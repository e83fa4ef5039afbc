#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

/// A value in the bytes of an XML document, whole or cut short: the text between two tags, an attribute's, or
/// what a comment or an instruction says.
struct XmlValue {
    std::size_t begin = 0; ///< where its bytes are
    std::size_t end = 0;
    std::string text;                     ///< what they mean
    const std::vector<std::string>& path; ///< local names from the root to the element
    std::string attribute;                ///< local name; empty for text, "#aside" for the last
    std::string_view siblingName;         ///< of a text: what the element "name" beside its element says
};

/// Tells every value in the order of the bytes; the gaps between them are markup. Takes what it gets: the
/// bytes of a reply that broke off as far as they go. Knows encodings that ASCII is a part of.
void walkXml(std::string_view bytes, const std::function<void(const XmlValue&)>& tell);

/// Whether bytes begin like XML in such an encoding.
bool looksLikeXml(std::string_view bytes);

/// A text as it stands in XML.
std::string xmlEscaped(std::string_view text);

} // namespace mrl::tool
