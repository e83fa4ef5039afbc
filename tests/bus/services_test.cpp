// Logon, attachments, reports and encrypted requests over HTTP, from bytes written by hand.

#include "BusFixture.h"
#include "Session/MRLHelper.h"
#include "soap/AttachedBytes.h"
#include "soap/Refusal.h"
#include "support/Bytes.h"
#include "support/Environment.h"
#include "support/Files.h"
#include "support/TemporaryDirectory.h"

#include "HBLCore/HBLByteBuffer.h"

#include <gmock/gmock.h>

#include <regex>

namespace mrl::bus {
namespace {

using mrl::test::golden;
using testing::HasSubstr;
using testing::Not;

class Services : public BusFixture {
protected:
    static std::string idIn(const std::string& reply, const std::string& pattern) {
        std::smatch found;
        EXPECT_TRUE(std::regex_search(reply, found, std::regex(pattern))) << reply;
        return found.empty() ? std::string() : found[1].str();
    }

    std::string logOn(const std::string& credential) {
        const auto reply = post(envelope("logon", element("credentials", "bus:xmlEncodedXML", credential)));
        return reply.status == 200 ? idIn(reply.body, ">(i[0-9A-F]{32})</bus:id>") : reply.body;
    }
    std::string logOnAnonymously() {
        return idIn(post(golden("anonymous_logon.xml")).body, ">(i[0-9A-F]{32})</bus:id>");
    }

    /// The request with a header that has the passport.
    static std::string with(const std::string& passport, std::string request) {
        const std::string header = "<SOAP-ENV:Header>" +
                                   element("tavelHeader", "bus:tavelHeader",
                                           element("ZOR", "bus:ZOR",
                                                   element("ZORPassport", "bus:ZORPassport",
                                                           element("id", "xs:string", passport)))) +
                                   "</SOAP-ENV:Header>";
        return request.insert(request.find("<SOAP-ENV:Body>"), header);
    }

    static std::string addFolder(const std::string& name) {
        return envelope(
            "add", element("parentPath", "bus:searchPathSingleObject", "/content") +
                       list("objects", "baseClass",
                            "<item xsi:type=\"bus:folder\">" +
                                element("defaultName", "bus:tokenProp", element("value", "xs:string", name)) +
                                "</item>"));
    }

    static std::string reportCall(const std::string& operation, const std::string& parameters) {
        std::string request = envelope(operation, parameters);
        return request.replace(request.find("contentManagerService"), 21, "reportService");
    }
    static std::string inConversation(const std::string& operation, const std::string& id) {
        return reportCall(operation, element("conversation", "bus:asynchRequest",
                                             element("stateData", "bus:xmlEncodedXML", id)));
    }

    /// Adds a document whose content is the part "c@x".
    static std::string addDocument(const std::string& part, const std::string& more = {}) {
        const std::string data = "<bus:data xsi:type=\"bus:base64BinaryMIMEProp\">"
                                 "<bus:value xsi:type=\"xs:base64Binary\" href=\"cid:c@x\"/></bus:data>";
        return "--b\r\nContent-Type: text/xml\r\n\r\n" +
               envelope("add", element("parentPath", "bus:searchPathSingleObject", "/content") +
                                   list("objects", "baseClass",
                                        "<item xsi:type=\"bus:documentContent\">" + data +
                                            element("defaultName", "bus:tokenProp",
                                                    element("value", "xs:string", "D")) +
                                            "</item>")) +
               "\r\n--b\r\n" + part + "\r\n--b" + more + "--\r\n";
    }
    Reply postParts(const std::string& body, const std::string& parameters = {}) {
        Poco::Net::HTTPClientSession session("127.0.0.1", port());
        return send(session, "POST", "/", "multipart/related; boundary=b" + parameters, body);
    }

    static constexpr const char* document = "/content/documentContent[@name='D']";
};

TEST_F(Services, LogOnTheAnonymousByteForByte) {
    const auto reply = post(golden("anonymous_logon.xml"));
    std::string expected = golden("anonymous_logon_reply.xml");
    const std::string passport = idIn(reply.body, ">(i[0-9A-F]{32})</bus:id>");
    expected = std::regex_replace(expected, std::regex("PASSPORT"), passport);
    EXPECT_EQ(reply.body, expected);
}

TEST_F(Services, AllowAnAnonymousPassportToLookAndNotToChange) {
    const std::string passport = logOnAnonymously();
    EXPECT_EQ(post(with(passport, query("/content", "name"))).status, 200);
    EXPECT_THAT(post(with(passport, addFolder("New"))).body, HasSubstr(">cmNoPermission<"));
    EXPECT_THAT(post(query("/content/folder[@name='New']", "name")).body, HasSubstr("bus:baseClass[0]"));
}

TEST_F(Services, LogOnByCredentialAndOff) {
    const auto credential = [](const std::string& user, const std::string& password) {
        return "&lt;credential>&lt;username>" + user + "&lt;/username>&lt;password>" + password +
               "&lt;/password>&lt;/credential>";
    };
    const std::string passport = logOn(credential("lena", "lena"));
    EXPECT_EQ(post(with(passport, addFolder("Lena's"))).status, 200);
    EXPECT_EQ(post(with(passport, envelope("logoff", ""))).status, 200);
    EXPECT_THAT(post(with(passport, query("/content", "name"))).body, HasSubstr(">busPassportExpired<"));
    for (const std::string& bad : {credential("lena", "tomas"), credential("", ""),
                                   credential("x' or 'a'='a", "x"), std::string("hello"), std::string()})
        EXPECT_THAT(logOn(bad), HasSubstr(">busLogonFailed<")) << bad;
}

TEST_F(Services, ForgetPassportsThatNobodyUses) {
    Passports::Clock::time_point now{};
    Passports passports({.idleTime = std::chrono::seconds(10), .most = 2, .now = [&] { return now; }});
    const std::string a = passports.issue("").passport;
    const std::string b = passports.issue("/b").passport;
    now += std::chrono::seconds(6);
    EXPECT_TRUE(passports.use(a));
    now += std::chrono::seconds(6);
    EXPECT_TRUE(passports.use(a));
    EXPECT_FALSE(passports.isGood(b));
    passports.issue("/c");
    passports.issue("/d");
    EXPECT_FALSE(passports.isGood(a)) << "the oldest makes room";
}

TEST_F(Services, TakeEncryptedRequestsOnceFromWhoSharesTheKeys) {
    const mrl::test::TemporaryDirectory directory;
    const mrl::test::Variable store("MRL_KEY_STORE", directory.path() + "/k/mrl.keys");
    const std::string request = with(logOnAnonymously(), addFolder("Trusted"));
    HBLByteBuffer encrypted(1, 256, 256);
    MRLHelper::encryptTrusted(request.data(), request.size(), "test", encrypted);
    const std::string sent(encrypted.str(), encrypted.pcount());
    EXPECT_EQ(post(sent).status, 200);
    EXPECT_THAT(post(sent).body, HasSubstr(">busNotTrusted<")) << "sent again by somebody who listened";
    std::string changed = sent;
    changed[changed.size() / 2] = changed[changed.size() / 2] == 'A' ? 'B' : 'A';
    EXPECT_THAT(post(changed).body, HasSubstr(">busNotTrusted<"));
    EXPECT_THAT(post(sent.substr(0, sent.size() / 2)).body, HasSubstr(">busNotTrusted<"));
}

TEST_F(Services, KeepDocumentsThatComeAsAttachments) {
    const std::string bytes("\0\x01\xff PDF\r\n", 9); // AAH/IFBERg0K
    const auto added = postParts(addDocument("Content-ID: <c@x>\r\n\r\n" + bytes));
    EXPECT_EQ(added.status, 200) << added.body;
    EXPECT_THAT(post(query(document, "data")).body, HasSubstr(">AAH/IFBERg0K<"));

    const auto attached = [&](const char* form, const std::string& more = {}) {
        return post(query(document, "data",
                          element("options", "bus:queryOptions",
                                  element("dataEncoding", "bus:encodingEnum", form) + more)));
    };
    const auto plain = attached("MIME");
    EXPECT_THAT(plain.contentType, testing::StartsWith("multipart/related; type=\"text/xml\""));
    EXPECT_THAT(plain.body, HasSubstr("href=\"cid:part1@mrl-bus\""));
    EXPECT_THAT(plain.body, HasSubstr("Content-ID: <part1@mrl-bus>\r\n\r\n" + bytes + "\r\n--"));
    EXPECT_THAT(attached("MIMECompressed").body, HasSubstr("Content-Encoding: gzip\r\n"));
    EXPECT_THAT(
        attached("MIME", element("maxDataBytes", "xs:int", "2") + element("skipDataBytes", "xs:int", "4"))
            .body,
        HasSubstr("\r\n\r\nPD\r\n--"));
}

TEST_F(Services, UnpackAttachmentsAndRefuseThoseThatGrowTooLarge) {
    const auto packed = [](std::size_t size) {
        return "Content-ID: <c@x>\r\nContent-Encoding: gzip\r\n\r\n" +
               mrl::test::packed(std::string(size, 'x'));
    };
    EXPECT_THAT(postParts(addDocument(packed(65U << 20U))).body, HasSubstr(">busBadRequest<"));
    const AttachedBytes::Budget budget(4); // of all attachments together
    const std::unique_ptr<MRL_AttachmentContainerI> one(AttachedBytes::create());
    const std::unique_ptr<MRL_AttachmentContainerI> other(AttachedBytes::create());
    one->write("abc", 3);
    EXPECT_THROW(other->write("de", 2), Unreadable);
    EXPECT_EQ(postParts(addDocument(packed(3))).status, 200);
    EXPECT_THAT(post(query(document, "data")).body, HasSubstr(">eHh4<"));
}

TEST_F(Services, RefuseMessagesThatAreNotWholeAndKeepNothingOfThem) {
    const std::string good = addDocument("Content-ID: <c@x>\r\n\r\nx");
    const struct {
        const char* name;
        std::string body;
        const char* parameters;
    } rows[] = {
        {"another part", addDocument("Content-ID: <d@x>\r\n\r\nx"), ""},
        {"a part without an id", addDocument("A: b\r\n\r\nx"), ""},
        {"no closing delimiter", good.substr(0, good.size() - 4), ""},
        {"another start", good, "; start=\"<e>\""},
        {"a coded part", addDocument("Content-ID: <c@x>\r\nContent-Transfer-Encoding: base64\r\n\r\neA=="),
         ""},
        {"a broken gzip stream", addDocument("Content-ID: <c@x>\r\nContent-Encoding: gzip\r\n\r\nxx"), ""},
        {"no parts", "hello", ""},
        {"no envelope", "--b\r\nContent-Type: text/html\r\n\r\nx\r\n--b--", ""},
    };
    for (const auto& row : rows) {
        const auto reply = postParts(row.body, row.parameters);
        EXPECT_THAT(reply.body, HasSubstr(">busBadRequest<")) << row.name << reply.body;
        EXPECT_THAT(post(query(document, "name")).body, HasSubstr("bus:baseClass[0]")) << row.name;
    }
}

TEST_F(Services, RunReportsAndHandOutWhatTheyMade) {
    const std::string options =
        list("options", "option",
             "<item xsi:type=\"bus:runOptionStringArray\">" +
                 element("name", "bus:runOptionEnum", "outputFormat") +
                 "<bus:value xsi:type=\"SOAP-ENC:Array\" SOAP-ENC:arrayType=\"xs:string[1]\">"
                 "<item xsi:type=\"xs:string\">CSV</item></bus:value></item>");
    const auto path = [](const char* report) {
        return element("objectPath", "bus:searchPathSingleObject", report);
    };
    const auto started = post(
        reportCall("run", path("/content/folder[@name='Finance']/report[@name='Balance sheet']") + options));
    const std::string id = idIn(started.body, ">(i[0-9A-F]{32})</bus:stateData>");
    EXPECT_THAT(post(inConversation("wait", id)).body, HasSubstr(">complete<"));
    EXPECT_THAT(post(inConversation("getOutput", id)).body,
                HasSubstr("\r\n\r\nName,Class,Changed,Description\r\n"));
    EXPECT_EQ(post(inConversation("release", id)).status, 200);
    for (const char* gone : {"wait", "getOutput", "cancel", "release"})
        EXPECT_THAT(post(inConversation(gone, id)).body, HasSubstr(">cmNotFound<")) << gone;

    const std::pair<const char*, const char*> refused[] = {
        {"/content/report[@name='None']", "cmNotFound"},
        {"/content/folder[@name='Sales']", "cmBadClass"},
        {"/content//report", "cmAmbiguousPath"},
        {"/content/folder[@name='Sales']/report[@name='Salary comparison']", "cmNoRead"},
    };
    for (const auto& [report, code] : refused)
        EXPECT_THAT(post(reportCall("run", path(report))).body, HasSubstr(std::string(">") + code + "<"))
            << report;
    EXPECT_THAT(post(reportCall("print", "")).body, HasSubstr(">busNotOffered<"));
}

} // namespace
} // namespace mrl::bus
