// Recordings on disk: their names, what is wrong with them, what differs, and what must not be seen.

#include "support/Table.h"
#include "support/TemporaryDirectory.h"
#include "traffic/CanonicalText.h"
#include "traffic/Difference.h"
#include "traffic/Envelope.h"
#include "traffic/Listing.h"
#include "traffic/Redaction.h"
#include "traffic/Verification.h"
#include "traffic/XmlBytes.h"

#include "PLQStreams/PLQGZIPInputStream.h"
#include "PLQStreams/PLQGZIPOutputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

namespace {

using namespace mrl::tool;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

TEST(FileNames, AreTakenApartOrRefused) {
    for (const auto& row : mrl::test::plainTable("file_names.txt")) {
        RecordedFileName name;
        EXPECT_EQ(row[1], !name.parse(row[0])
                              ? "-"
                              : name.service + "|" + std::to_string(name.number) + "|" + name.message + "|" +
                                    std::to_string(name.kind) + "|" + std::to_string(name.attachment))
            << row[0];
    }
}

std::string envelope(const std::string& body, const std::string& header = "") {
    return R"(<s:Envelope xmlns:s="http://schemas.xmlsoap.org/soap/envelope/" )"
           R"(xmlns:b="http://developer.vantor.example/schemas/tavel/3/" )"
           R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance"><s:Header>)" +
           header + "</s:Header><s:Body>" + body + "</s:Body></s:Envelope>";
}

std::string packed(const std::string& bytes) {
    PLQMemoryOutputStream out(1024, 1024);
    PLQGZIPOutputStream gzip(out);
    gzip.write(bytes.data(), bytes.size());
    gzip.close();
    return {out.bytes(), out.length()};
}

std::string unpacked(const std::string& bytes) {
    PLQMemoryInputStream in(bytes.data(), bytes.size());
    PLQGZIPInputStream gzip(in);
    std::string out(1000, '\0');
    out.resize(gzip.readFully(out.data(), out.size()));
    return out;
}

const std::string QUERY = "contentManagerService.";
const std::string REQUEST = "-contentQuery_Request";
const std::string REPLY = "-contentQuery_Reply";

struct Traffic : testing::Test {
    void put(const std::string& name, const std::string& bytes) const {
        std::ofstream(directory.path() + "/" + name, std::ios::binary) << bytes;
    }
    void putCall(const std::string& number, const std::string& request, const std::string& reply) const {
        put(QUERY + number + REQUEST + ".xml", request);
        put(QUERY + number + REPLY + ".xml", reply);
    }
    Recording read() const { return Recording::read(directory.path()); }
    std::vector<std::string> problems() const {
        std::vector<std::string> words;
        for (const Finding& finding : verify(read()))
            words.push_back((finding.weight == Finding::problem ? "" : "note: ") + finding.place + ": " +
                            finding.words);
        return words;
    }
    mrl::test::TemporaryDirectory directory;
};

const std::string SOUND_REQUEST = envelope("<q:query xmlns:q='urn:q'/>");
const std::string SOUND_REPLY = envelope("<queryResponse/>");

struct Broken {
    const char* name;
    std::function<void(const Traffic&)> make; // on top of one sound call
    const char* words;                        // of the one finding
};

class BrokenRecording : public Traffic, public testing::WithParamInterface<Broken> {};

TEST_P(BrokenRecording, IsToldInOneFinding) {
    putCall("0", SOUND_REQUEST, SOUND_REPLY);
    EXPECT_THAT(problems(), IsEmpty());
    GetParam().make(*this);
    EXPECT_THAT(problems(), ElementsAre(HasSubstr(GetParam().words)));
}

INSTANTIATE_TEST_SUITE_P(
    Recording, BrokenRecording,
    testing::Values(
        Broken{"gap", [](const Traffic& here) { here.putCall("2", SOUND_REQUEST, SOUND_REPLY); },
               "Service.2: the call before it, number 1, is missing"},
        Broken{"no_reply",
               [](const Traffic& here) { here.put(QUERY + "1" + REQUEST + ".xml", SOUND_REQUEST); },
               "there is no reply"},
        Broken{"broken_off", [](const Traffic& here) { here.putCall("1", SOUND_REQUEST, ""); },
               "while recording no call is repeated"},
        Broken{"cut_reply",
               [](const Traffic& here) { here.putCall("1", SOUND_REQUEST, SOUND_REPLY.substr(0, 200)); },
               "the reply cannot be read: line 1, column"},
        Broken{"document_type",
               [](const Traffic& here) { here.putCall("1", SOUND_REQUEST, "<!DOCTYPE a><a/>"); },
               "the reply cannot be read"},
        Broken{"html", [](const Traffic& here) { here.putCall("1", SOUND_REQUEST, "<html><body/></html>"); },
               "no SOAP 1.1 envelope"},
        Broken{"other_operation",
               [](const Traffic& here) { here.putCall("1", envelope("<delete/>"), SOUND_REPLY); },
               "of the operation 'delete', its name says query"},
        Broken{"encrypted", [](const Traffic& here) { here.putCall("1", "MRT1\x02\x03", SOUND_REPLY); },
               "note: contentManagerService.1: the request is encrypted"},
        Broken{"reference_without_part",
               [](const Traffic& here) {
                   here.putCall("1", SOUND_REQUEST, envelope("<a><c href='cid:1'/></a>"));
               },
               "the reply refers to 1 attachment, and has 0"},
        Broken{"attachment_gap",
               [](const Traffic& here) { here.put(QUERY + "0" + REQUEST + ".attachment2", "x"); },
               "the file of attachment 1 is missing"},
        Broken{
            "reply_attachment",
            [](const Traffic& here) { here.put(QUERY + "0" + REPLY + "_attachment", "x"); },
            "note: contentManagerService.0: the reply came with 1 attachment. Played back, it comes without"},
        Broken{"stranger", [](const Traffic& here) { here.put("notes.txt", "x"); },
               "no session gives a file this name"},
        Broken{"link",
               [](const Traffic& here) {
                   std::filesystem::create_symlink("/etc/passwd", here.directory.path() + "/" + QUERY + "1" +
                                                                      REPLY + ".xml");
               },
               "it was not followed"}),
    [](const auto& row) { return std::string(row.param.name); });

TEST_F(Traffic, ADenialThatWasSentAgainCannotBePlayedBack) {
    putCall("0", SOUND_REQUEST,
            envelope("<s:Fault><faultstring>no</faultstring><detail><e><errorCode>cmNoRead</errorCode></e>"
                     "</detail></s:Fault>"));
    putCall("1", "cipher", SOUND_REPLY);
    EXPECT_THAT(problems(), ElementsAre(HasSubstr("encrypted"), HasSubstr("Played back, it is refused")));
    std::ostringstream list;
    printList(read(), list);
    EXPECT_THAT(list.str(), HasSubstr("contentManagerService.0  query        fault cmNoRead"));
}

TEST_F(Traffic, TextOfARecordingCannotMoveTheCursor) {
    putCall("0", SOUND_REQUEST,
            envelope("<a>\xC2\x9B"
                     "2J&#13;</a>"));
    std::ostringstream shown;
    printCall(read().find("contentManagerService.0"), Shown::reply, shown);
    EXPECT_THAT(shown.str(), HasSubstr("<a>\\x9b2J\\x0d</a>"));
}

struct Pair {
    const char* before;
    const char* now;
    std::vector<std::string> lines;
};

class Differences : public Traffic, public testing::WithParamInterface<Pair> {};

TEST_P(Differences, AreOfMeaningAndNotOfSpelling) {
    const mrl::test::TemporaryDirectory other;
    putCall("0", GetParam().before, SOUND_REPLY);
    std::filesystem::copy(directory.path(), other.path());
    putCall("0", GetParam().now, envelope("<other/>"));
    std::ostringstream out;
    const std::size_t differing = printDifferences(Recording::read(other.path()), read(),
                                                   PathRules::volatilePlaces(), Compared::requests, out);
    EXPECT_EQ(GetParam().lines.empty() ? 0U : 1U, differing);
    for (const std::string& line : GetParam().lines)
        EXPECT_THAT(out.str(), HasSubstr(line));
}

const std::string HEADER_1 = envelope("<a/>", "<b:tracking><b:startTime>1</b:startTime></b:tracking>");
const std::string HEADER_2 = envelope("<a/>", "<b:tracking><b:startTime>2</b:startTime></b:tracking>");
const std::string HEADER_3 = envelope("<a/>", "<b:tracking/>");
const std::string PREFIX_1 = envelope("<p:a xmlns:p='urn:1' z='1' xsi:type='p:t' y='2'><c>x</c></p:a>");
const std::string PREFIX_2 =
    envelope("<a xmlns='urn:1' y='2' z=\"1\" xsi:type='t'>\n <!-- c --> <c xmlns=''><![CDATA[x]]></c></a>");
const std::string PREFIX_3 = envelope("<a xmlns='urn:2' y='2' z='1' xsi:type='t'><c xmlns=''>x</c></a>");

INSTANTIATE_TEST_SUITE_P(
    Recording, Differences,
    testing::Values(Pair{HEADER_1.c_str(), HEADER_2.c_str(), {}},
                    Pair{HEADER_1.c_str(),
                         HEADER_3.c_str(),
                         {"-       <bus:startTime>(left out)</bus:startTime>", "+     <bus:tracking/>"}},
                    Pair{PREFIX_1.c_str(), PREFIX_2.c_str(), {}},
                    Pair{PREFIX_1.c_str(),
                         PREFIX_3.c_str(),
                         {"- ", "xsi:type=\"{urn:1}t\"", "+ ", "xsi:type=\"{urn:2}t\""}},
                    Pair{"cipher one", "cipher two", {}},
                    Pair{"", SOUND_REQUEST.c_str(), {"before, it is empty; now, it is sound"}}));

TEST(DifferingLines, AreTheFewestWithTheLineAbove) {
    EXPECT_THAT(differingLines({"a", "b", "c", "d", "e"}, {"a", "c", "x", "d", "e"}),
                ElementsAre("  a", "- b", "  c", "+ x"));
    EXPECT_THAT(differingLines({"a"}, {"a"}), IsEmpty());
    EXPECT_THAT(differingLines({}, {"a"}), ElementsAre("+ a"));
}

TEST_F(Traffic, SecretsAreMaskedInEveryFileAndEveryOtherByteStays) {
    const std::string secret = "p&ss <w0rd>";
    const std::string header = "<b:ZOR><b:ZORPassport><b:id>MTAx:abcdef=</b:id></b:ZORPassport></b:ZOR>"
                               "<b:item><b:name>API-Token</b:name><b:value>short</b:value></b:item>";
    const std::string body =
        "<a b='MTAx:abcdef=' c=\"1\">p&amp;ss &lt;w0rd&gt;<!-- MTAx:abcdef= --> \r\n</a>";
    putCall("0", envelope(body, header), envelope("<x>short</x>").substr(0, 320)); // cut short
    put(QUERY + "0" + REQUEST + ".attachment", "id;MTAx:abcdef=;p%26ss%20%3Cw0rd%3E;cCZzcyA8dzByZD4=");
    put(QUERY + "0" + REQUEST + ".attachment2", packed("<p><password>other</password>MTAx:abcdef=</p>"));
    put(QUERY + "0" + REPLY + "_attachment", std::string("\0MTAx:abcdef=\xff", 14));
    put(QUERY + "0" + REPLY + "_attachment2", std::string("M\0T\0A\0x\0:\0a\0b\0c\0d\0e\0f\0=\0\n\0", 26));
    put(QUERY + "0" + REPLY + "_attachment3", "\x1f\x8b broken MTAx:abcdef=");
    put("notes.txt", secret);
    const std::string untouched = read().calls[0].reply.string();

    Secrets secrets(PathRules::secretPlaces());
    secrets.addValue(secret);
    const mrl::test::TemporaryDirectory place;
    const std::string into = place.path() + "/masked/";
    const Redacted result = redact(read(), secrets, into);

    const auto after = [&](const std::string& name) {
        return bytesOf(into + "contentManagerService.0" + name);
    };
    EXPECT_EQ(envelope("<a b='MASKED000002' c=\"1\">MASKED000001<!-- MASKED000002 --> \r\n</a>",
                       "<b:ZOR><b:ZORPassport><b:id>MASKED000002</b:id></b:ZORPassport></b:ZOR>"
                       "<b:item><b:name>API-Token</b:name><b:value>MASKED000003</b:value></b:item>"),
              after(REQUEST + ".xml"));
    EXPECT_EQ(bytesOf(untouched), after(REPLY + ".xml")) << "too short to be searched for";
    EXPECT_EQ("id;MASKED000002;MASKED000001;TUFTS0VEMDAwMDAx", after(REQUEST + ".attachment"));
    EXPECT_EQ("<p><password>MASKED000004</password>MASKED000002</p>",
              unpacked(after(REQUEST + ".attachment2")));
    EXPECT_EQ(std::string("\0MASKED000002\xff", 14), after(REPLY + "_attachment"));
    EXPECT_EQ(std::string("M\0A\0S\0K\0E\0D\0"
                          "0\0"
                          "0\0"
                          "0\0"
                          "0\0"
                          "0\0"
                          "2\0\n\0",
                          26),
              after(REPLY + "_attachment2"));
    EXPECT_THAT(after(REPLY + "_attachment3"), Not(HasSubstr("MTAx:abcdef=")));
    EXPECT_THAT(result.unsearched,
                ElementsAre(HasSubstr("_attachment3: it is packed with gzip, and damaged")));
    EXPECT_THAT(result.leftOut, ElementsAre("notes.txt"));
    EXPECT_EQ(7U, result.files);
    EXPECT_THROW(redact(read(), secrets, into), TrafficError) << "it is there already";
    EXPECT_THROW(redact(read(), secrets, place.path() + "/none/masked"), TrafficError);
    EXPECT_EQ(1, std::distance(std::filesystem::directory_iterator(place.path()), {}))
        << "nothing half-written";
}

TEST(XmlValues, AreFoundInWhateverComes) {
    for (const char* hostile : {"<", "<a", "<a b", "<a b=", "<a b='", "<a b='x", "</a></a>", "<a>x<![CDATA[y",
                                "<!--", "<a>&#x110000;&bogus;&", "<?", "x", "<a b=c d='e'>f</a>"}) {
        std::size_t last = 0;
        walkXml(hostile, [&](const XmlValue& value) {
            EXPECT_LE(last, value.begin) << hostile;
            EXPECT_LE(value.begin, value.end) << hostile;
            EXPECT_LE(value.end, std::string_view(hostile).size()) << hostile;
            last = value.end;
        });
    }
}

TEST(Rules, SayWhatIsWrongWithThem) {
    for (const char* wrong : {"", "/", "a//b", "/a", "a b", "a@b", "@"})
        EXPECT_THROW(PathRules().add(wrong), TrafficError) << wrong;
    PathRules rules;
    rules.add("a/*/c");
    EXPECT_TRUE(rules.matchElement(std::vector<std::string>{"x", "a", "b", "c"}));
    EXPECT_FALSE(rules.matchElement(std::vector<std::string>{"a", "c"}));
    EXPECT_FALSE(rules.matchAttribute(std::vector<std::string>{"a", "b", "c"}, "d"));
}

} // namespace
