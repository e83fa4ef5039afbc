#include "traffic/PathRules.h"

#include "files/FileText.h"
#include "traffic/Recording.h"

#include <algorithm>
#include <array>
#include <sstream>

namespace mrl::tool {

namespace {

constexpr std::array<std::string_view, 26> VOLATILE = {
    "tracking/requestContext",
    "tracking/sessionContext",
    "tracking/startTime",
    "tracking/subRequestID",
    "tracking/hopCount",
    "tracking/stepID",
    "conversationContext/id",
    "conversationContext/expirationTime",
    "conversationContext/nodeID",
    "conversationContext/processID",
    "ZORPassport/id",
    "ZORPassport/generation",
    "ZOR/authenticityToken",
    "ZOR/securityBlob",
    "ZOR/userSessionID",
    "ZORProtect/digest",
    "ZORProtect/signature",
    "QAF/requestID",
    "QAF/secureState",
    "userCapabilityCache/digest",
    "userCapabilityCache/expirationTime",
    "cookieVars/item/value",
    "setCookieVars/item/value",
    "setCookieVars/item/expires",
    "environmentVars/item/value",
    "@href",
};

constexpr std::array<std::string_view, 17> SECRET = {
    "ZORPassport/id",
    "ZOR/authenticityToken",
    "ZOR/securityBlob",
    "ZOR/userSessionID",
    "ZORProtect/digest",
    "ZORProtect/signature",
    "QAF/secureState",
    "cookieVars/item/value",
    "setCookieVars/item/value",
    "formFieldVars/item/value",
    "environmentVars/item/value",
    "dispatcherTransportVars/item/value",
    "credential",
    "credentials",
    "password",
    "secret",
    "authorization",
};

bool isName(std::string_view name) {
    return !name.empty() && name.find_first_of(" \t@/<>&") == name.npos;
}

} // namespace

PathRules::PathRules(std::span<const std::string_view> rules) {
    for (const std::string_view rule : rules)
        add(rule);
}

PathRules PathRules::volatilePlaces() {
    return PathRules(VOLATILE);
}

PathRules PathRules::secretPlaces() {
    return PathRules(SECRET);
}

void PathRules::add(std::string_view rule) {
    Rule made;
    std::string_view rest = rule;
    if (const std::size_t at = rest.find('@'); at != rest.npos) {
        made.attribute = rest.substr(at + 1);
        rest = rest.substr(0, at);
        if (!isName(made.attribute) || (!rest.empty() && !rest.ends_with('/')))
            throw TrafficError("'" + std::string(rule) + "' is no rule: write ELEMENT/@ATTRIBUTE");
        rest = rest.substr(0, rest.empty() ? 0 : rest.size() - 1);
    }
    while (!rest.empty()) {
        const std::size_t slash = rest.rfind('/');
        const std::string_view name = slash == rest.npos ? rest : rest.substr(slash + 1);
        if (!isName(name) || slash == 0)
            throw TrafficError("'" + std::string(rule) +
                               "' is no rule: write names of elements with '/' between them");
        made.names.emplace_back(name);
        rest = rest.substr(0, slash == rest.npos ? 0 : slash);
    }
    if (made.names.empty() && made.attribute.empty())
        throw TrafficError("an empty rule means nothing; name an element, such as tracking/startTime");
    m_rules.push_back(std::move(made));
}

void PathRules::addFile(const std::filesystem::path& file) {
    std::istringstream in(fileText(file.string()));
    std::string line;
    for (int number = 1; std::getline(in, line); ++number) {
        line.resize(std::min(line.find('#'), line.size()));
        const std::size_t begin = line.find_first_not_of(" \t\r");
        if (begin == line.npos)
            continue;
        try {
            add(std::string_view(line).substr(begin, line.find_last_not_of(" \t\r") - begin + 1));
        } catch (const TrafficError& e) {
            throw TrafficError(file.string() + ":" + std::to_string(number) + ": " + e.what());
        }
    }
}

bool PathRules::match(std::span<const std::string> path, std::string_view attribute) const {
    return std::ranges::any_of(m_rules, [&](const Rule& rule) {
        if (rule.attribute != attribute || rule.names.size() > path.size())
            return false;
        for (std::size_t i = 0; i < rule.names.size(); ++i)
            if (rule.names[i] != "*" && rule.names[i] != path[path.size() - 1 - i])
                return false;
        return true;
    });
}

} // namespace mrl::tool
