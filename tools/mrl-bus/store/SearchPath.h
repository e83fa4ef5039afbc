#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::bus {

/// A parsed search path: which objects of the store a request is about.
///
///     path      = branch { "|" branch }
///     branch    = "/" | ( "/" | "//" ) step { ( "/" | "//" ) step }
///     step      = ( class | "*" ) { "[" "@" property "=" literal "]" }
///     literal   = "'" text "'" | '"' text '"'     the enclosing quote is doubled inside the text
///
/// "/" leads to children, "//" to descendants; a class matches objects of exactly that class. Blanks
/// may stand around "|", "=" and the brackets.
struct SearchPath {
    enum class Axis { child, descendant };

    struct Predicate {
        std::string property;
        std::string value;
    };

    struct Step {
        Axis axis = Axis::child;
        std::string objectClass; ///< empty for "*"
        std::vector<Predicate> predicates;
    };

    /// No step at all is the root of the store.
    using Branch = std::vector<Step>;

    static constexpr std::size_t maxLength = 16384;
    static constexpr std::size_t maxSteps = 40;
    static constexpr std::size_t maxPredicates = 8;
    static constexpr std::size_t maxBranches = 32;

    std::vector<Branch> branches;

    /// @throws StoreError badSearchPath with the position (1-based, in bytes) and the remedy, tooMuch
    /// beyond a limit.
    static SearchPath parse(std::string_view text);

    /// `text` as a literal: in single quotes, in double ones when it holds single ones only.
    static std::string quote(std::string_view text);

    /// The one canonical step that names an object among its siblings.
    static std::string step(std::string_view objectClass, std::string_view name);
};

} // namespace mrl::bus
