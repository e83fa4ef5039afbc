#include "Session/MRLBusSettings.h"

#include "HBLCFGAPI/HBLConfigurationError.h"
#include "HBLCFGAPI/detail/Configuration.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLFmDir.h"
#include "TavelTK/TavelTK.h"
#include "TavelTK/TavelTKException.h"

#include <algorithm>
#include <array>
#include <mutex>

namespace {

constexpr const char* PROPERTY = "bus";

constexpr std::array<std::string_view, 26> NAMES{"tls-ca-file",
                                                 "tls-ca-directory",
                                                 "tls-certificate-file",
                                                 "tls-key-file",
                                                 "tls-key-password",
                                                 "tls-verify-certificate",
                                                 "tls-verify-host",
                                                 "tls-min-version",
                                                 "proxy",
                                                 "proxy-user",
                                                 "proxy-password",
                                                 "no-proxy",
                                                 "user",
                                                 "password",
                                                 "connect-time-limit",
                                                 "send-time-limit",
                                                 "receive-time-limit",
                                                 "expect-continue",
                                                 "max-header-bytes",
                                                 "max-envelope-bytes",
                                                 "max-reply-bytes",
                                                 "max-parts",
                                                 "max-early-bytes",
                                                 "inflate-attachments",
                                                 "max-inflated-bytes",
                                                 "max-inflate-ratio"};

std::string_view trimmed(std::string_view text) {
    constexpr std::string_view BLANKS = " \t\r\n";
    const std::size_t first = text.find_first_not_of(BLANKS);
    return first == text.npos ? std::string_view()
                              : text.substr(first, text.find_last_not_of(BLANKS) - first + 1);
}

bool isPath(std::string_view name) {
    return name.ends_with("-file") || name.ends_with("-directory");
}

std::string valueOf(const HBLConfigurationEntry& entry) {
    std::string value(trimmed(entry.value));
    if (isPath(entry.path) && !value.empty()) {
        HBLFmDir::resolveEffectivePath(value);
    }
    return value;
}

} // namespace

std::span<const std::string_view> MRLBusSettings::names() {
    return NAMES;
}

std::vector<HBLConfigurationFinding> MRLBusSettings::check(const HBLConfigurationProperty& property) {
    using Finding = HBLConfigurationFinding;
    std::vector<Finding> findings;
    if (!property.isTree && !property.value.empty()) {
        findings.push_back({Finding::eWrong, property.place,
                            "expected qzn:parameter elements, each with a name and a qzn:value, as the value "
                            "of \"bus\", found a text"});
    }
    // The toolkit itself knows best what it takes.
    const std::unique_ptr<TavelTK> toolkit(TavelTK::getSessionFactory());
    for (auto at = property.entries.begin(); at != property.entries.end(); ++at) {
        const HBLConfigurationEntry& entry = *at;
        const auto first = std::ranges::find(property.entries, entry.path, &HBLConfigurationEntry::path);
        if (first != at) {
            findings.push_back({Finding::eWrong, entry.place,
                                "expected each setting of \"bus\" once, found \"" + entry.path +
                                    "\" again, first at line " + std::to_string(first->place.line)});
            continue;
        }
        if (std::ranges::find(NAMES, entry.path) == NAMES.end()) {
            findings.push_back({Finding::eWrong, entry.place,
                                "the toolkit does not know the setting \"" + entry.path + "\" of \"bus\""});
            continue;
        }
        try {
            toolkit->setProperty(entry.path, valueOf(entry));
        } catch (const TavelTKException& e) {
            findings.push_back(
                {Finding::eWrong, entry.place, std::string("in the property \"bus\": ") + e.getMessage()});
        }
    }
    return findings;
}

MRLBusSettings::MRLBusSettings(const HBLConfigurationProperty& property) {
    for (const HBLConfigurationEntry& entry : property.entries) {
        m_settings.emplace_back(entry.path, valueOf(entry));
    }
}

std::shared_ptr<const MRLBusSettings> MRLBusSettings::current() {
    static std::mutex s_lock;
    static std::shared_ptr<const HBLConfigurationProperty>
        s_source;                                            // held, so that its address stays its own
    static std::shared_ptr<const MRLBusSettings> s_settings; // what s_source says

    const auto source = mrl::detail::configuredProperty(PROPERTY);
    if (source == nullptr) {
        return nullptr;
    }
    const std::lock_guard guard(s_lock);
    if (s_source != source) {
        if (const auto findings = check(*source); !findings.empty()) {
            HBL_THROW(HBLConfigurationError(findings.front().place, findings.front().words),
                      "MRLBusSettings::current");
        }
        s_settings.reset(new MRLBusSettings(*source));
        s_source = source;
    }
    return s_settings;
}

void MRLBusSettings::apply(TavelTK& factory) const {
    for (const auto& [name, value] : m_settings) {
        factory.setProperty(name, value);
    }
}
