#include "ZORCrypto/detail/CryptoHandle.h"

#include "ZORCrypto/ZORError.h"
#include "ZORCrypto/detail/Clock.h"
#include "ZORCrypto/detail/KeyRing.h"
#include "ZORCrypto/detail/SealedDocument.h"
#include "ZORCrypto/detail/SignedText.h"

#include <algorithm>
#include <array>
#include <utility>

namespace mrl::detail {

namespace {

constexpr std::array<std::pair<std::string_view, Purpose>, 4> c_actions{{
    {"CSKEncrypt", Purpose::data},
    {"VantorTrustedRequest", Purpose::trustedRequest},
    {"ReportSpecSign", Purpose::specification},
    {"SecureStateSign", Purpose::secureState},
}};

} // namespace

CryptoHandle::CryptoHandle(std::string service)
    : m_service(std::move(service)) {
    checkService(m_service);
}

Purpose CryptoHandle::purpose() const {
    if (!m_purpose)
        refuse(eZORBadArgument, "the handle has no purpose yet: ZOR_SetInfo gives it one");
    return *m_purpose;
}

void CryptoHandle::setInfo(const ControlDocument& document) {
    const std::string& name = document.get("action");
    const auto* const action =
        std::ranges::find(c_actions, name, &std::pair<std::string_view, Purpose>::first);
    if (action == c_actions.end())
        refuse(eZORBadDocument, "there is no action \"" + name + '"');
    const std::string* const location = document.find("dataLocation");
    if (location != nullptr && *location != "memory")
        refuse(eZORBadDocument, "there is no data location \"" + *location + "\", only \"memory\"");
    const std::string* const external = document.find("externalFlag");
    if (external != nullptr &&
        (action->second != Purpose::secureState || (*external != "true" && *external != "false")))
        refuse(eZORBadDocument, "externalFlag is \"true\" or \"false\", and for SecureStateSign only");
    m_purpose = action->second;
    m_issuesExternal = external != nullptr && *external == "true";
}

std::string CryptoHandle::getInfo(const ControlDocument& document) const {
    if (purpose() != Purpose::secureState)
        refuse(eZORBadArgument, "there is information for secure states only");
    std::string text = "<getInfoDocument>";
    for (const auto& [name, unused] : document.elements()) {
        if (name != "externalFlag" && name != "validationFlag")
            refuse(eZORBadDocument, "there is no information \"" + name + '"');
        const bool value = name == "externalFlag" ? m_isExternal : m_isValid;
        text.append("<").append(name).append(value ? ">true</" : ">false</").append(name).append(">");
    }
    return text + "</getInfoDocument>";
}

std::string CryptoHandle::protect(std::string_view data) const {
    const Purpose wanted = purpose();
    if (data.empty())
        refuse(eZORBadArgument, "there is nothing to protect");
    const auto keys = keysForWriting();
    std::string out;
    switch (wanted) {
    case Purpose::specification: signSpecification(*keys, m_service, data, out); return out;
    case Purpose::secureState: return issueState(*keys, m_service, m_issuesExternal, data);
    default: sealDocument(*keys, wanted, m_service, {}, secondsSince1970(), data, out);
    }
    return wanted == Purpose::trustedRequest ? armour(out) : out;
}

void CryptoHandle::unprotect(std::string_view data, std::string& clear) const {
    const Purpose wanted = purpose();
    std::string document;
    if (wanted == Purpose::trustedRequest) {
        document = unarmour(data);
        data = document;
    }
    if (readHeader(data, wanted).service != m_service)
        refuse(eZORRefused, "the document was protected for another service");
    unsealDocument(*keysForReading(), wanted, {}, data, clear);
}

std::size_t CryptoHandle::verifySpecification(std::string_view data) const {
    return mrl::detail::verifySpecification(*keysForReading(), m_service, data);
}

void CryptoHandle::acceptState(std::string_view passport, std::string_view state) {
    m_isValid = m_isExternal = false; // what follows says nothing about the one before
    m_isExternal = mrl::detail::acceptState(*keysForReading(), state, passport);
    m_isValid = true;
}

} // namespace mrl::detail
