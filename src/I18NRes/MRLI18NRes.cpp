#include "I18NRes/MRLI18NRes.h"

#include "I18NRes/MRLNamespaceAuthorities.h"
#include "I18NRes/detail/StringCache.h"

#include <array>

namespace {

constexpr std::array<const char*, MRLI18NRes::s_count> MRLI18NRes_CharArray{
    /*  0 */ "http://schemas.xmlsoap.org/soap/encoding/",
    /*  1 */ "bus:",
    /*  2 */ "http://www.w3.org/2001/XMLSchema",
    /*  3 */ "http://www.w3.org/2001/XMLSchema-instance",
    /*  4 */ "SOAP-ENC:Array",
    /*  5 */ "SOAP-ENC:arrayType",
    /*  6 */ "xmlns:bus",
    /*  7 */ "xmlns:xsi",
    /*  8 */ "xmlns:SOAP-ENC",
    /*  9 */ "xmlns:xs",
    /* 10 */ "xsi:type",
    /* 11 */ "xsi:nil",
    /* 12 */ "faultcode",
    /* 13 */ "faultstring",
    /* 14 */ "faultactor",
    /* 15 */ "detail",
    /* 16 */ "exception",
    /* 17 */ "item",
    /* 18 */ "zor_passport",
    /* 19 */ MRL_DEVELOPER_AUTHORITY "/schemas/tavel/3/",
    /* 20 */ "true",
    /* 21 */ "false",
    /* 22 */ "",
    /* 23 */ "Interactive",
    /* 24 */ "UTF-8",
    /* 25 */ "name",
    /* 26 */ "temp",
    /* 27 */ "encryptTemporaryFiles",
    /* 28 */ "MRLmsgs",
    /* 29 */ MRL_DEVELOPER_AUTHORITY "/schemas/tavel/3",
    /* 30 */ "contentManager",
    /* 31 */ "internalDispatcher",
    /* 32 */ MRL_DEVELOPER_AUTHORITY "/schemas/qzconfig/1/",
    /* 33 */ "password",
    /* 34 */ "AAA",
    /* 35 */ "parameter",
    /* 36 */ "inactivityTimeout",
    /* 37 */ "value",
    /* 38 */ " ",
    /* 39 */ "MRLSOAPSession",
    /* 40 */ "ZORCredential",
    /* 41 */ "SUCCESS",
    /* 42 */ "FAILURE",
    /* 43 */ "WARNING",
    /* 44 */ "<response>",
    /* 45 */ "</response>",
    /* 46 */ "<request>",
    /* 47 */ "</request>",
    /* 48 */ "<parameters>",
    /* 49 */ "</parameters>",
    /* 50 */ "<trace>",
    /* 51 */ "</trace>",
    /* 52 */ "<item name=\"",
    /* 53 */ "\"><![CDATA[",
    /* 54 */ "]]></item>",
    /* 55 */ "primaryRequestLogging",
    /* 56 */ "logOperationType",
    /* 57 */ "logObjectType",
    /* 58 */ "LogAuditIndication",
    /* 59 */ "LogTraceIndication",
    /* 60 */ "LogPerfIndication",
    /* 61 */ "Audit.RTUsage.MRL",
    /* 62 */ "Audit.RTUsage.MRL.Request",
    /* 63 */ "Trace.MRL",
    /* 64 */ "Perf.MRL",
    /* 65 */ "cmNoRead",
    /* 66 */ "cmNoWrite",
    /* 67 */ "cmNoPermission",
    /* 68 */ "cmPropertyNoPermission",
    /* 69 */ "/",
    /* 70 */ "contentManagers",
    /* 71 */ "xsd:string",
    /* 72 */ "property",
    /* 73 */ "type",
    /* 74 */ "long",
    /* 75 */ "ExternalServicesRecordingMode",
    /* 76 */ "MRL",
    /* 77 */ "reportServerType",
    /* 78 */ "resolveConnection",
    /* 79 */ "../schemas/rspec/4.0/V5_report.dtd",
    /* 80 */ "/adHocReport",
    /* 81 */ "/adHocReport[Lumena Query]",
    /* 82 */ "externalDispatcher",
    /* 83 */ "sdk",
};

constexpr std::array<const char16_t*, 4> xpathPieces{u"./", u"/", u"[", u"]"};

constinit std::array<std::atomic<const I18NString*>, MRLI18NRes::s_count> cache{};
constinit HBLThreadCriticalSection cacheLock;

} // namespace

const I18NString& MRLI18NRes::getString(unsigned int id) {
    return mrl::detail::cachedString(cache[id], cacheLock, instance(), [id] {
        HBL_ASSERT(MRLI18NRes_CharArray[id]);
        return MRLI18NRes_CharArray[id];
    });
}

const char* MRLI18NRes::getChar(unsigned int key) {
    return MRLI18NRes_CharArray[key];
}

const char16_t* MRLI18NRes::getXPathPiece(unsigned int index) {
    return xpathPieces[index];
}

MRLI18NRes::~MRLI18NRes() = default;

void MRLI18NRes::reset() {
    mrl::detail::resetCache(cache.data(), cache.size());
}

MRLI18NRes& MRLI18NRes::instance() {
    // Never destroyed: texts may still be asked for while the process ends.
    static auto* const res = new MRLI18NRes;
    return *res;
}
