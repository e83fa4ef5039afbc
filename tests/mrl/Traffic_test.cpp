// Recordings on disk: their names, what is wrong with them, what differs, and what must not be seen.

#include "support/Bytes.h"
#include "support/Table.h"
#include "support/TemporaryDirectory.h"
#include "traffic/CanonicalText.h"
#include "traffic/Difference.h"
#include "traffic/Envelope.h"
#include "traffic/Listing.h"
#include "traffic/Redaction.h"
#include "traffic/Verification.h"
#include "traffic/XmlBytes.h"

#include <gmock/gmock.h>

#include <fstream>
#include <sstream>

namespace {

using namespace mrl::tool;
using mrl::test::packed;
using mrl::test::unpacked;
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

const std::string QUERY = "contentManagerService.";
const std::string REQUEST = "-contentQuery_Request";
const std::string REPLY = "-contentQuery_Reply";

/// A folder with a recording.
struct Folder {
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
struct Traffic : testing::Test, Folder {};

const std::string SOUND_REQUEST = envelope("<q:query xmlns:q='urn:q'/>");
const std::string SOUND_REPLY = envelope("<queryResponse/>");

/// The bytes of a file as a table has them: one of the sound ones, a body (and header) in an envelope, or as
/// is.
std::string content(const std::string& cell) {
    const std::size_t header = std::min(cell.find("@@"), cell.size());
    return cell == "REQUEST"       ? SOUND_REQUEST
           : cell == "REPLY"       ? SOUND_REPLY
           : header != cell.size() ? envelope(cell.substr(0, header), cell.substr(header + 2))
                                   : cell;
}

TEST(Recordings, ThatAreBrokenAreToldInOneFinding) {
    for (const auto& row : mrl::test::table("broken_recordings.txt")) {
        const Folder here;
        here.putCall("0", SOUND_REQUEST, SOUND_REPLY);
        EXPECT_THAT(here.problems(), IsEmpty());
        for (std::size_t i = 2; i + 1 < row.size(); i += 2)
            here.put(row[i], content(row[i + 1]));
        EXPECT_THAT(here.problems(), ElementsAre(HasSubstr(row[1]))) << row[0];
    }
}

TEST_F(Traffic, ALinkIsNotFollowed) {
    putCall("0", SOUND_REQUEST, SOUND_REPLY);
    std::filesystem::create_symlink("/etc/passwd", directory.path() + "/" + QUERY + "1" + REPLY + ".xml");
    EXPECT_THAT(problems(), ElementsAre(HasSubstr("it was not followed")));
}

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

TEST(Recordings, DifferInMeaningAndNotInSpelling) {
    for (const auto& row : mrl::test::plainTable("differences.txt")) {
        SCOPED_TRACE(row[0]);
        const Folder before;
        const Folder now;
        before.putCall("0", content(mrl::test::withBytes(row[1])), SOUND_REPLY);
        now.putCall("0", content(mrl::test::withBytes(row[2])), envelope("<other/>"));
        std::ostringstream out;
        const std::size_t differing =
            printDifferences(before.read(), now.read(), PathRules::volatilePlaces(), Compared::requests, out);
        EXPECT_EQ(row.size() > 3 ? 1U : 0U, differing);
        for (std::size_t line = 3; line < row.size(); ++line)
            EXPECT_THAT(out.str(), HasSubstr(row[line]));
    }
}

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
