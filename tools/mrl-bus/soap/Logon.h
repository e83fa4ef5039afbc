#pragma once

#include "soap/Call.h"
#include "store/ContentStore.h"

#include <string>

class MRLMessageI;

namespace mrl::bus {

/// Logons of the content manager service: logon, logoff, havePassportsExpired, and the anonymous logon that
/// is asked for in the header. Any thread may call.
class Logon {
public:
    Logon(ContentStore& store, Passports& passports)
        : m_store(store)
        , m_passports(passports) {}

    /// Performs the call; the passport of a logon goes into the header of the reply.
    /// @return false when the operation is none of these.
    /// @throws Refusal for a credential that is not good.
    bool perform(Call& call);

    /// An envelope with the header of an anonymous logon.
    std::string anonymous();

private:
    std::string account(const std::string& credentials);
    static void tell(const Caller& caller, MRLMessageI& reply);

    ContentStore& m_store;
    Passports& m_passports;
};

} // namespace mrl::bus
