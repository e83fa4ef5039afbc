#pragma once

#include <xercesc/util/XMLString.hpp>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace mrl::detail {

/// The namespace declarations in scope while a document is read. Declaring, leaving and looking up take the
/// same time however many there are.
class NamespaceScope {
public:
    NamespaceScope();

    /// Forgets a document, finished or not. Names of namespaces given out before are gone.
    void reset();

    /// Binds a prefix, empty for the default namespace, until leave().
    /// @return the name as it is given out from now on: one copy of each for the whole document.
    const XMLCh* declare(std::u16string_view prefix, std::u16string_view uri);

    /// Undoes the last declaration, and gives its prefix.
    const std::u16string& leave();

    /// @return the name of the namespace; empty for an empty prefix that is not declared, and null for any
    /// other.
    const XMLCh* find(std::u16string_view prefix) const;

    /// Changes with each declaration and each end of one: what was found before still holds while it is the
    /// same.
    std::uint64_t generation() const { return m_generation; }

    /// Two prefixes have stood for one namespace in this document.
    bool hasAliases() const { return m_hasAliases; }

private:
    struct Hash {
        using is_transparent = void;
        std::size_t operator()(std::u16string_view text) const {
            return std::hash<std::u16string_view>()(text);
        }
    };
    using Bindings = std::unordered_map<std::u16string, std::vector<const XMLCh*>, Hash, std::equal_to<>>;

    const XMLCh* kept(std::u16string_view uri);

    std::unordered_set<std::u16string, Hash, std::equal_to<>> m_uris;
    Bindings m_bindings;                           // the innermost last
    std::vector<Bindings::value_type*> m_declared; // the latest last
    std::uint64_t m_generation = 0;
    bool m_hasAliases = false;
};

} // namespace mrl::detail
