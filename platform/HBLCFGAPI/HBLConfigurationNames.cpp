#include "HBLCFGAPI/HBLConfigurationNames.h"

#include <algorithm>
#include <array>

namespace {

using enum HBLConfigurationKind;

constexpr std::array<HBLConfigurationName, 18> KNOWN{{
    {"contentManager", eUri, "", "address of the content manager; asked before contentManagers"},
    {"contentManagers", eUriList, "", "addresses of the content managers; the first is used"},
    {"internalDispatcher", eUri, "", "address of the dispatcher, asked first"},
    {"externalDispatcher", eUri, "", "address of the dispatcher when internalDispatcher is not set"},
    {"sdk", eUri, "", "address of the dispatcher when neither of the two is set"},
    {"bus", eParameters, "", "how services are reached: TLS, proxy, credentials, limits"},
    {"gateway", eText, "", "address of the gateway, the base of addresses in documents"},
    {"temp", eText, "../temp", "directory of temporary files, relative to that of the programs"},
    {"encryptTemporaryFiles", eFlag, "false", "whether temporary files of documents are encrypted"},
    {"keyStore", eText, "../configuration/keystore/mrl.keys",
     "file of the keys, relative to the programs; MRL_KEY_STORE goes before it"},
    {"serverLocale", eText, "", "language of failures in the audit log"},
    {"emailEncoding", eText, "UTF-8", "encoding of e-mails"},
    {"reportServerType", eText, "", "Interactive, or any other text for a batch server"},
    {"rsChartHotspotLimit", eNumber, "", "hot spots of a chart at most, interactive server; -1 for no limit"},
    {"brsChartHotspotLimit", eNumber, "", "hot spots of a chart at most, batch server; -1 for no limit"},
    {"advancedSettings", eSettings, "", "settings of the report server by name"},
    {"AAA", eParameters, "", "logon: inactivityTimeout, in seconds, 3600 when absent"},
    {"CRYPTO", eParameters, "", "providers of cryptography and their parameters"},
}};

} // namespace

std::span<const HBLConfigurationName> HBLConfigurationNames::all() {
    return KNOWN;
}

const HBLConfigurationName* HBLConfigurationNames::find(std::string_view name) {
    const auto* const found = std::ranges::find(KNOWN, name, &HBLConfigurationName::name);
    return found == KNOWN.end() ? nullptr : found;
}

std::string_view HBLConfigurationNames::describe(HBLConfigurationKind kind) {
    switch (kind) {
    case eText: return "a text";
    case eFlag: return "true or false";
    case eNumber: return "a whole number";
    case eUri: return "an address that begins with http:// or https://";
    case eUriList: return "qzn:item elements, each an address that begins with http:// or https://";
    case eParameters: return "qzn:parameter elements, each with a name and a qzn:value";
    case eSettings: return "qzn:setting elements, each with a name and a text";
    }
    return "a text";
}
