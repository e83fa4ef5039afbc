#include "soap/Logon.h"

#include "Session/MRLHelper.h"
#include "Toolkit/MRLAuthenticationHavePassportsExpired_Reply.h"
#include "Toolkit/MRLAuthenticationHavePassportsExpired_Request.h"
#include "Toolkit/MRLAuthenticationLogon_Request.h"
#include "Toolkit/MRLBooleanArray.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLHdrSession.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLSetCookieVar.h"
#include "Toolkit/MRLSetCookieVarArray.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLXmlEncodedXML.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORPassport.h"
#include "soap/Envelope.h"
#include "soap/Refusal.h"
#include "soap/SchemaAccess.h"

#include "HBLCore/HBLThrowable.h"
#include "HBLCore/I18NString.h"
#include "HBLIDOM/HBLIDOM.h"
#include "HBLIDOM/HBLIDOM_Helper.h"

namespace mrl::bus {

namespace {

std::string textOf(const HBLIDOM_Document& document, const char* element) {
    const HBLIDOM_Element found = HBLIDOM_Helper::findFirstElement(document, I18NString(element));
    return found.isNull() ? std::string() : HBLIDOM_Helper::getElementText(found).toUtf8();
}

/// A value between the quotes of a search path.
std::string quoted(const std::string& value) {
    std::string result = "'";
    for (const char c : value)
        result.append(c == '\'' ? 2 : 1, c);
    return result + "'";
}

} // namespace

bool Logon::perform(Call& call) {
    MRLMessageI& in = call.binding.getInputMessage();
    MRLMessageI& out = call.binding.getOutputMessage();
    MRLObjectRegistryI& registry = out.getObjectRegistry();
    switch (in.getMessageType()) {
    case MRLMessageI::eMRLAuthenticationLogon_Request: {
        const auto& request = static_cast<MRLAuthenticationLogon_Request&>(in);
        tell(m_passports.issue(account(SchemaAccess::text(request.getCredentials()).value_or(""))), out);
        return true;
    }
    case MRLMessageI::eMRLAuthenticationLogoff_Request: m_passports.end(call.caller.passport); return true;
    case MRLMessageI::eMRLAuthenticationHavePassportsExpired_Request: {
        const auto& request = static_cast<MRLAuthenticationHavePassportsExpired_Request&>(in);
        auto& reply = static_cast<MRLAuthenticationHavePassportsExpired_Reply&>(out);
        for (const std::string& passport : SchemaAccess::texts(request.getPassportIDs()))
            reply.getResult(&registry)->push_back(m_passports.isGood(passport) ? 0 : 1);
        return true;
    }
    default: return false;
    }
}

std::string Logon::anonymous() {
    const HBLSmartPointer<MRLPortTypeBinding> binding(
        MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
            MRLMessageI::eMRLAuthenticationLogon_Request));
    tell(m_passports.issue(""), binding->getOutputMessage());
    return replyEnvelope(*binding);
}

/// The account that a credential is good for. This bus is for trying: the password of an account is its user
/// name.
std::string Logon::account(const std::string& credentials) {
    HBLIDOM_Document document;
    try {
        MRLHelper::parseXML(credentials.data(), credentials.size(), document);
    } catch (const HBLThrowable& e) {
        throw Refusal("busLogonFailed", std::string("The credential is not XML: ") + e.getMessage());
    }
    const std::string user = textOf(document, "username");
    QueryRequest query;
    query.searchPath = "//account[@userName=" + quoted(user) + "]";
    const auto found = user.empty() ? std::vector<StoreObject>() : m_store.query(query);
    if (found.empty() || textOf(document, "password") != user)
        throw Refusal("busLogonFailed",
                      "There is no such user, or the password is another one; give "
                      "<credential><username>U</username><password>P</password></credential>.");
    return found.front().searchPath();
}

void Logon::tell(const Caller& caller, MRLMessageI& reply) {
    MRLObjectRegistryI& registry = reply.getObjectRegistry();
    MRLTavelHeader& header = *reply.getTavelHeader(&registry);
    MRLZORPassport& passport = *header.getZOR(&registry)->getZORPassport(&registry);
    SchemaAccess::setText(passport, "id", caller.passport, registry);
    passport.setIsAnonymous(caller.account.empty() ? 1 : 0);
    auto* cookie =
        static_cast<MRLSetCookieVar*>(SchemaAccess::create(MRLSetCookieVar::s_objectType, registry));
    cookie->setName("zor_passport");
    SchemaAccess::setText(*cookie, "value", caller.passport, registry);
    header.getHdrSession(&registry)->getSetCookieVars().push_back(cookie);
}

} // namespace mrl::bus
