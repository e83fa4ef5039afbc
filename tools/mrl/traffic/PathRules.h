#pragma once

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace mrl::tool {

/// Picks places of an envelope by the local names that lead to them, from the inside: "tracking/startTime" is
/// every element startTime right in an element tracking. "*" stands for any one name, and "@href" at the end
/// for the attribute of that name.
class PathRules {
public:
    PathRules() = default;
    explicit PathRules(std::span<const std::string_view> rules);

    /// @throws TrafficError for what is no rule.
    void add(std::string_view rule);
    /// A rule a line; "#" begins a comment.
    /// @throws TrafficError with file and line.
    void addFile(const std::filesystem::path& file);

    /// @param path the local names from the root on.
    bool matchElement(std::span<const std::string> path) const { return match(path, {}); }
    /// @param attribute its local name.
    bool matchAttribute(std::span<const std::string> path, std::string_view attribute) const {
        return match(path, attribute);
    }

    /// What differs from call to call although nothing has changed: ids, times, tokens.
    static PathRules volatilePlaces();
    /// What nobody but the caller and the service should know: passports, tokens, cookies, credentials.
    static PathRules secretPlaces();

private:
    struct Rule {
        std::vector<std::string> names; // the innermost first
        std::string attribute;          // empty for the element
    };

    bool match(std::span<const std::string> path, std::string_view attribute) const;

    std::vector<Rule> m_rules;
};

} // namespace mrl::tool
