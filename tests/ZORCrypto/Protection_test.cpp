// What protects documents: known ones are opened, and nothing else is.
#include "support/KeyStore.h"

#include "HBLCore/HBLBase64.h"
#include "ZORCrypto/HBLZORCookie.h"
#include "ZORCrypto/ZORKeyStore.h"
#include "ZORCrypto/ZORTrustedReader.h"
#include "ZORCrypto/detail/Text.h"

#include <functional>
#include <set>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

using std::chrono::seconds;
using std::chrono::sys_seconds;

const std::string HEADER_END = "0420650f4c25d0fabd000000006b01336052454e51"
                               "a0a1a2a3a4a5a6a7a8a9aaabacadaeafb0b1b2b3b4b5b6b7b8b9babbbcbdbebf";
const std::string STATE = "1.20650f4c25d0fabd.e.UkVOUQ.bljG7KAZxj-RuFU2Cv5kYQ-2NCUH9nCMxMm00j9BvjcguQqc"
                          "ZeKNAOTVqPq3nwhsXo-CU5Zk17QhicNU5VH2Aw";
const std::string COOKIE = "1.20650f4c25d0fabd.1795000000.PFpPUi8-.P4U88125ANhDyuW6ng2i3WwyIPLWg8IvI7t9cHL"
                           "y7AJVKiujSZK9Ns6lRxrSYgWw4ioNy6inF9B4rAh49w6HAA";
const std::string SPECIFICATION =
    "<report/><!--ZOR1 20650f4c25d0fabd mwXbSGYppaubE719W+pqwc1JXlnuE+YiQi586aOU83pE"
    "S9YrCTn7syfwiu4D8qLRCoSj3s/2j60Whupcs2FSDQ==-->";
constexpr std::int64_t MADE = 1795240800; // 2026-11-21T06:00:00Z

std::string bytes(const std::string& hex) {
    std::string result;
    EXPECT_TRUE(mrl::detail::fromHex(hex, result));
    return result;
}

std::string armoured(const std::string& document) {
    return "<trustedRequest version=\"1\">" + HBLBase64Encoded(document) + "</trustedRequest>";
}

std::string dataDocument() {
    return bytes("5a4f520101" + HEADER_END + "40000c1d74c2e58a3cc011f9611286a55a2f80e91e");
}
std::string trustedDocument() {
    return armoured(bytes("5a4f520102" + HEADER_END + "cfe28e0620d92d52167774bc8db02e35eb024370"));
}
std::string credentialDocument() {
    return bytes("5a4f52010300" + HEADER_END.substr(2, 32) + HEADER_END.substr(42) +
                 "33b8c8f2b4a8e3f17219c155a9a820129f6fe670bb09");
}

int decryptCredential(const std::string& document, const std::string& passport, std::string& out) {
    char* result = nullptr;
    ZOR_UInt32 size = 0;
    const int status =
        ZOR_DecryptCredential(document.data(), static_cast<ZOR_UInt32>(document.size()), passport.data(),
                              static_cast<ZOR_UInt32>(passport.size()), &result, &size, 0);
    out = Handle::take(result, size);
    return status;
}

int readCookie(const std::string& cookie, std::int64_t at, std::string& out) {
    try {
        HBLZORCookie(cookie.c_str()).asXMLString(out, sys_seconds(seconds(at)));
        return 0;
    } catch (const ZORError& e) {
        return e.getStatus();
    }
}

/// A protected text, and what reads it: the status and what came out.
struct Known {
    const char* name;
    std::string (*document)();
    std::function<int(const std::string&, std::string&)> open;
    const char* clear;
};

std::vector<Known> knownDocuments() {
    const auto handle = [](const char* action) {
        return [opener = Handle("RENQ", action)](const std::string& document, std::string& out) mutable {
            return opener.unprotect(document, out);
        };
    };
    return {
        {"data", dataDocument, handle("CSKEncrypt"), "hello"},
        {"a trusted request", trustedDocument, handle("VantorTrustedRequest"), "<e/>"},
        {"a specification", [] { return SPECIFICATION; }, handle("ReportSpecSign"), "9"},
        {"a credential", credentialDocument,
         [](const std::string& document, std::string& out) {
             return decryptCredential(document, "passport-1", out);
         },
         "secret"},
        {"a secure state", [] { return STATE; },
         [opener = Handle("other", "SecureStateSign")](const std::string& state, std::string& out) mutable {
             const int status = opener.acceptState("passport-1", state);
             out = opener.info();
             return status;
         },
         "<getInfoDocument><externalFlag>true</externalFlag><validationFlag>true</validationFlag></"
         "getInfoDocument>"},
        {"a cookie", [] { return COOKIE; },
         [](const std::string& cookie, std::string& out) { return readCookie(cookie, 1794999999, out); },
         "<ZOR/>"},
    };
}

using Protection = WithStore;

TEST_F(Protection, OpensDocumentsWorkedOutByHand) {
    writeStore(KNOWN_STORE);
    for (const Known& known : knownDocuments()) {
        std::string clear;
        EXPECT_EQ(known.open(known.document(), clear), 0) << known.name;
        EXPECT_EQ(clear, known.clear) << known.name;
    }
    EXPECT_EQ(Handle("RENQ", "ReportSpecSign").protect("<report/>"), SPECIFICATION)
        << "signatures have no chance in them";
    EXPECT_EQ(Handle("RENQ", "SecureStateSign", "<externalFlag>true</externalFlag>").protect("passport-1"),
              STATE);
}

TEST_F(Protection, IsBrokenByEveryByteThatChangesOrIsMissingOrIsAdded) {
    writeStore(KNOWN_STORE);
    for (const Known& known : knownDocuments()) {
        const std::string whole = known.document();
        std::string clear;
        for (std::size_t i = 0; i < whole.size(); ++i) {
            std::string changed = whole;
            changed[i] = static_cast<char>(changed[i] ^ 1);
            EXPECT_LT(known.open(changed, clear), 0) << known.name << ", byte " << i;
            EXPECT_LT(known.open(whole.substr(0, i), clear), 0) << known.name << ", cut to " << i;
        }
        EXPECT_LT(known.open(whole + 'A', clear), 0) << known.name;
        EXPECT_EQ(clear.find(known.clear), std::string::npos) << known.name << ": nothing unproven leaves";
    }
}

TEST_F(Protection, BelongsToOnePurposeServiceAndPassport) {
    writeStore(KNOWN_STORE);
    std::string out;
    Handle data("RENQ", "CSKEncrypt");
    Handle trusted("RENQ", "VantorTrustedRequest");
    Handle state("RENQ", "SecureStateSign");
    EXPECT_EQ(Handle("other", "CSKEncrypt").unprotect(dataDocument(), out), eZORRefused);
    EXPECT_EQ(Handle("other", "ReportSpecSign").unprotect(SPECIFICATION, out), eZORRefused);
    EXPECT_EQ(trusted.unprotect(armoured(dataDocument()), out), eZORRefused);
    EXPECT_EQ(trusted.details(), "the document was protected for another purpose");
    EXPECT_EQ(decryptCredential(credentialDocument(), "passport-2", out), eZORRefused);
    EXPECT_EQ(state.acceptState("passport-1", STATE), 0);
    EXPECT_EQ(state.acceptState("passport-2", STATE), eZORRefused);
    EXPECT_NE(state.info().find("<externalFlag>false"), std::string::npos)
        << "of the last one, not of the one before";
    std::string later = dataDocument();
    later[3] = 2;
    EXPECT_EQ(data.unprotect(later, out), eZORUnknownVersion);
    std::string foreign = dataDocument();
    foreign[6] = 0x77;
    EXPECT_EQ(data.unprotect(foreign, out), eZORUnknownKey);
    EXPECT_NE(data.details().find("77650f4c25d0fabd"), std::string::npos) << data.details();
}

TEST_F(Protection, OfCookiesEndsAtTheirTime) {
    writeStore(KNOWN_STORE);
    std::string xml = "before";
    EXPECT_EQ(readCookie(COOKIE, 1795000000, xml), eZORExpired);
    EXPECT_EQ(readCookie("<ZOR/>", 0, xml), eZORRefused);
    EXPECT_EQ(readCookie("2" + COOKIE.substr(1), 0, xml), eZORUnknownVersion);
    EXPECT_EQ(xml, "before");
    EXPECT_THROW(HBLZORCookie::fromXMLString("<ZOR/>", seconds(0)), ZORError);
    const HBLZORCookie cookie = HBLZORCookie::fromXMLString("<ZOR>\xC3\xBF?>~</ZOR>", seconds(60));
    EXPECT_EQ(cookie.getValue().find_first_of("+/=;, "), std::string::npos)
        << "needs no quotes: " << cookie.getValue();
    cookie.asXMLString(xml);
    EXPECT_EQ(xml, "<ZOR>\xC3\xBF?>~</ZOR>");
}

TEST_F(Protection, OfTrustedRequestsHoldsOnceAndForAWhile) {
    writeStore(KNOWN_STORE);
    const auto statusOf = [](ZORTrustedReader& reader, const std::string& body, std::int64_t at) {
        try {
            return reader.open(body, sys_seconds(seconds(at))).text == "<e/>" ? 0 : 1;
        } catch (const ZORError& e) {
            return static_cast<int>(e.getStatus());
        }
    };
    constexpr std::int64_t WINDOW = 300;
    const std::string request = trustedDocument();
    EXPECT_TRUE(ZORTrustedReader::isProtected(request));
    EXPECT_FALSE(ZORTrustedReader::isProtected("<?xml version=\"1.0\"?>"));
    ZORTrustedReader reader{seconds(WINDOW), sys_seconds{seconds(MADE)}};
    EXPECT_EQ(statusOf(reader, request, MADE + WINDOW + 1), eZORExpired) << "too old";
    EXPECT_EQ(statusOf(reader, request, MADE - WINDOW - 1), eZORExpired) << "from the future";
    EXPECT_EQ(statusOf(reader, request, MADE - WINDOW), 0);
    EXPECT_EQ(statusOf(reader, request, MADE + WINDOW), eZORExpired) << "a second time";
    ZORTrustedReader later{seconds(WINDOW), sys_seconds{seconds(MADE + 1)}};
    EXPECT_EQ(statusOf(later, request, MADE), eZORExpired) << "made before this reader began";
    const std::string fresh = Handle("RENQ", "VantorTrustedRequest").protect("<e/>");
    ZORTrustedReader always{std::chrono::years(9999), sys_seconds{}};
    EXPECT_EQ(statusOf(always, fresh, MADE), 0) << "whatever the clock of this machine says";
}

TEST_F(Protection, GoesOnWithOldKeysAfterARotationThatRunningHandlesNotice) {
    writeStore(KNOWN_STORE);
    Handle data("RENQ", "CSKEncrypt");
    std::string clear;
    ASSERT_EQ(data.unprotect(dataDocument(), clear), 0);
    const std::string id = ZORKeyStore::rotate(m_path).id;
    const auto keys = ZORKeyStore::list(m_path);
    ASSERT_EQ(keys.size(), 2u);
    EXPECT_EQ(keys[0].id, "20650f4c25d0fabd");
    EXPECT_EQ(keys[0].created, MADE);
    EXPECT_TRUE(keys[1].writes && !keys[0].writes);
    const std::string written = data.protect("new");
    EXPECT_EQ(mrl::detail::toHex(written.substr(6, 8)), id);
    EXPECT_EQ(data.unprotect(written, clear), 0);
    EXPECT_EQ(clear, "new");
    EXPECT_EQ(data.unprotect(dataDocument(), clear), 0);
    EXPECT_EQ(clear, "hello");
}

TEST_F(Protection, OfEqualTextsNeverLooksTheSameNorInChildren) {
    std::set<std::string> salts;
    Handle handle("RENQ", "CSKEncrypt");
    for (int i = 0; i < 300; ++i)
        EXPECT_TRUE(salts.insert(handle.protect("the same").substr(26, 32)).second);
    for (int child = 0; child < 4; ++child) {
        int ends[2];
        ASSERT_EQ(pipe(ends), 0);
        if (const pid_t pid = fork(); pid == 0) {
            const std::string document = handle.protect("the same");
            _exit(write(ends[1], document.data(), document.size()) == static_cast<ssize_t>(document.size())
                      ? 0
                      : 1);
        } else {
            waitpid(pid, nullptr, 0);
        }
        std::string document(200, '\0');
        document.resize(
            static_cast<std::size_t>(std::max<ssize_t>(read(ends[0], document.data(), document.size()), 0)));
        close(ends[0]);
        close(ends[1]);
        ASSERT_GT(document.size(), 58u);
        EXPECT_TRUE(salts.insert(document.substr(26, 32)).second)
            << "each child counts on from the same number";
    }
}

TEST(ControlDocuments, AreRefusedWithThePlace) {
    const char* const rows[][2] = {
        {nullptr, "the sessionConfigDocument is missing"},
        {"<sessionConfigDocument></sessionConfigDocument>",
         "the sessionConfigDocument has no element \"serviceID\""},
        {"<sessionConfigDocument><serviceID>a<b</serviceID></sessionConfigDocument>",
         "the sessionConfigDocument expects \"</serviceID>\" at byte 35"},
        {"<sessionConfigDocument><serviceID>a\nb</serviceID></sessionConfigDocument>",
         "the service id holds a control character"},
    };
    for (const auto& [document, expected] : rows) {
        ZOR_Handle handle = nullptr;
        char* details = nullptr;
        EXPECT_LT(ZOR_PersistentInitialize(&handle, document, 0, &details), 0);
        EXPECT_STREQ(details, expected);
        EXPECT_EQ(handle, nullptr);
        ZOR_CryptoFree(details, 0);
    }
}

} // namespace
