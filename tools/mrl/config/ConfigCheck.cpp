#include "config/ConfigCheck.h"

#include "Session/MRLAdvancedSetting.h"
#include "Session/MRLBusSettings.h"
#include "config/Secrets.h"
#include "config/Wording.h"
#include "lookup/Nearest.h"

#include "HBLCFGAPI/HBLConfigurationNames.h"
#include "HBLCore/HBLThrowable.h"
#include "HBLCore/I18NConverter.h"
#include "HBLIDOM/HBLIDOM_Parser.h"

#include <algorithm>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace mrl::tool {

namespace {

using Finding = HBLConfigurationFinding;
using Findings = std::vector<Finding>;
using Names = std::vector<std::string_view>;

bool isSame(std::string_view a, std::string_view b) {
    return a.size() == b.size() && editDistance(a, b) == 0; // another case costs nothing
}

bool isEncoding(const std::string& name) {
    try {
        return !I18NConverter(name.c_str()).getName().empty();
    } catch (const HBLThrowable&) {
        return false;
    }
}

Names split(std::string_view values) {
    Names parts;
    while (!values.empty()) {
        const auto bar = std::min(values.find('|'), values.size());
        parts.push_back(values.substr(0, bar));
        values.remove_prefix(std::min(bar + 1, values.size()));
    }
    return parts;
}

bool isOneOf(std::string_view value, const Names& names) {
    return std::ranges::any_of(names, [&](std::string_view name) { return isSame(name, value); });
}

/// What the setting expects, when `value` is something else; else empty.
std::string expectedBy(const MRLAdvancedSetting& setting, const std::string& value) {
    switch (setting.kind) {
    case MRLAdvancedSettingKind::eFlag:
        return isOneOf(value, {"TRUE", "FALSE"}) ? "" : "TRUE or FALSE (this is taken for FALSE)";
    case MRLAdvancedSettingKind::eNumber: return isNumber(value, false) ? "" : "a whole number";
    case MRLAdvancedSettingKind::eMeasure: return isNumber(value, true) ? "" : "a number";
    case MRLAdvancedSettingKind::eChoice: {
        std::string choices(setting.values);
        std::ranges::replace(choices, '|', ',');
        return isOneOf(value, split(setting.values)) ? "" : "one of " + choices;
    }
    case MRLAdvancedSettingKind::eCharacter: {
        Names named = split(setting.values);
        named.insert(named.end(), {"TAB", "CR", "LF"});
        const bool isCharacter = I18NString(value).length() <= 1;
        return isCharacter || isOneOf(value, named) ? ""
                                                    : "one character or its name (only the first is taken)";
    }
    case MRLAdvancedSettingKind::eText: break;
    }
    const bool namesEncoding =
        setting.name.ends_with(".ENCODING") && !value.empty() && !isSame(value, "LOCALE");
    return namesEncoding && !isEncoding(value) ? "the name of an encoding (UTF16_LittleEndian is taken)" : "";
}

/// Looks through one document.
class Examination {
public:
    explicit Examination(Findings findings)
        : m_findings(std::move(findings)) {}

    void look(const HBLConfigurationProperty& property) {
        if (HBLConfigurationNames::find(property.name) == nullptr) {
            Names names;
            for (const HBLConfigurationName& known : HBLConfigurationNames::all()) {
                names.push_back(known.name);
            }
            add(Finding::eDoubtful, property.place,
                "the toolkit does not know the property " + quoted(property.name) +
                    proposal(property.name, names, MOST_PROPOSED));
        } else if (property.name == "advancedSettings") {
            lookAtSettings(property);
        } else if (property.name == "bus") {
            lookAtBus(property);
        } else if (property.name == "AAA") {
            lookAtEntries(property, {"inactivityTimeout"});
        } else if (property.name == "CRYPTO") {
            lookAtEntries(property, {"cryptoProvider", "Vantor", "PDFConfidentialityAlgorithm"});
        } else if (property.name == "emailEncoding" && !property.value.empty() &&
                   !isEncoding(property.value)) {
            add(Finding::eDoubtful, property.place,
                "expected the name of an encoding as the value of \"emailEncoding\", found " +
                    quoted(property.value));
        }
    }

    Findings take() {
        std::ranges::stable_sort(m_findings, {}, [](const Finding& finding) {
            return std::tuple(finding.place.line, finding.place.column);
        });
        return std::move(m_findings);
    }

private:
    void add(Finding::Weight weight, const HBLConfigurationPlace& place, std::string words) {
        m_findings.push_back({weight, place, std::move(words)});
    }

    void lookAtSettings(const HBLConfigurationProperty& property) {
        if (!property.isTree && !property.value.empty()) {
            HBLIDOM_Parser parser;
            HBLIDOM_Document document;
            if (parser.parse(property.value.data(), property.value.size(), document) == 0) {
                add(Finding::eWrong, property.place,
                    "expected qzn:setting elements, or the same as XML in a text, as the value of "
                    "\"advancedSettings\": " +
                        parser.errorString().toUtf8());
            }
        }
        Names names;
        for (const MRLAdvancedSetting& setting : MRLAdvancedSetting::all()) {
            names.push_back(setting.name);
        }
        std::map<std::string_view, int> seen; // by the known name: its line
        for (const HBLConfigurationEntry& entry : property.entries) {
            const auto known = std::ranges::find_if(MRLAdvancedSetting::all(), [&](const auto& setting) {
                return isSame(setting.name, entry.path);
            });
            if (known == MRLAdvancedSetting::all().end()) {
                add(Finding::eDoubtful, entry.place,
                    "the toolkit does not know the setting " + quoted(entry.path) +
                        proposal(entry.path, names, MOST_PROPOSED));
                continue;
            }
            if (const std::string expected = expectedBy(*known, entry.value); !expected.empty()) {
                add(Finding::eDoubtful, entry.place,
                    "expected " + expected + " as the value of " + quoted(entry.path) + ", found " +
                        quoted(entry.value));
            }
            if (const auto [first, isNew] = seen.emplace(known->name, entry.place.line); !isNew) {
                add(Finding::eDoubtful, entry.place,
                    "expected each setting once, found " + quoted(entry.path) + " again, first at line " +
                        std::to_string(first->second) + "; the last counts");
            }
        }
    }

    void lookAtBus(const HBLConfigurationProperty& property) {
        const Names names(MRLBusSettings::names().begin(), MRLBusSettings::names().end());
        for (Finding finding : MRLBusSettings::check(property)) {
            const auto entry = std::ranges::find_if(property.entries, [&](const auto& candidate) {
                return candidate.place.line == finding.place.line &&
                       candidate.place.column == finding.place.column;
            });
            if (entry != property.entries.end() && std::ranges::find(names, entry->path) == names.end()) {
                finding.words += proposal(entry->path, names, MOST_PROPOSED);
            }
            m_findings.push_back(std::move(finding));
        }
    }

    /// What others keep there is theirs; a name close to one of ours is a slip.
    void lookAtEntries(const HBLConfigurationProperty& property, const Names& names) {
        for (const HBLConfigurationEntry& entry : property.entries) {
            const std::string name = entry.path.substr(entry.path.rfind('/') + 1);
            const bool isKnown = std::ranges::find(names, name) != names.end();
            if (const std::string near = proposal(name, names, MOST_PROPOSED); !isKnown && !near.empty()) {
                add(Finding::eDoubtful, entry.place,
                    "the toolkit does not know the parameter " + quoted(name) + near);
            }
            if (name == "inactivityTimeout" && !isNumber(entry.value, false)) {
                add(Finding::eDoubtful, entry.place,
                    "expected seconds, a whole number, as the value of \"inactivityTimeout\", found " +
                        quoted(entry.value));
            }
        }
    }

    Findings m_findings;
};

} // namespace

Findings examined(const HBLConfigurationDocument& document) {
    Examination examination(document.getFindings());
    for (const HBLConfigurationProperty& property : document.getProperties()) {
        examination.look(property);
    }
    return examination.take();
}

void printFindings(const Findings& findings, std::ostream& out) {
    for (const Finding& finding : findings) {
        out << finding.place.toString() << (finding.weight == Finding::eWrong ? ": error: " : ": warning: ")
            << shown("", finding.words) << '\n';
    }
}

} // namespace mrl::tool
