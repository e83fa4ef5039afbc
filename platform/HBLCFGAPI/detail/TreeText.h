#pragma once

#include "HBLIDOM/HBLIDOM_Element.h"

#include <string>
#include <string_view>
#include <vector>

namespace mrl::detail {

/// Writes the value of a property as XML that stands alone: every namespace it needs is declared, and the
/// elements of the configuration's namespace have the prefix "qzn", whatever the document called it.
/// Comments are left out.
class TreeText {
public:
    /// Why there is no such text.
    struct Refusal {
        std::string words;
    };

    explicit TreeText(unsigned maximumDepth)
        : m_maximumDepth(maximumDepth) {}

    /// @return the element as "qzn:value" with all below it.
    /// @throws Refusal
    std::string write(const HBLIDOM_Element& value);

private:
    struct Binding {
        std::string prefix;
        std::string uri;
    };

    void element(const HBLIDOM_Element& element, const std::string& tag, unsigned depth);
    void attributes(const HBLIDOM_Element& element);
    void content(const HBLIDOM_Element& element, const std::string& tag, unsigned depth);
    std::string tagOf(const HBLIDOM_Node& node) const;
    /// Declares, in the tag that is being written, what `node` needs and the text does not have.
    void declareFor(const HBLIDOM_Node& node, bool isAttribute);
    void declare(const std::string& prefix, const std::string& uri);
    const std::string* uriOf(std::string_view prefix) const;

    const unsigned m_maximumDepth;
    std::vector<Binding> m_bindings; // those in force, the innermost last
    std::string m_text;
};

} // namespace mrl::detail
