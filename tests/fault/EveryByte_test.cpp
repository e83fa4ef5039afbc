// A call whose reply ends after each of its bytes once: the caller gets the whole reply, by a retry, or one
// clear exception, and the next call works.
#include "Session/MRLDocIo.h"
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLContentQueryTenantMembership_Reply.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/ConfigurationFile.h"
#include "support/ScriptedPeer.h"

#include "HBLCore/HBLSmartPointer.h"
#include "TavelTK/TavelTKError.h"
#include "TavelTK/TavelTKException.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <set>
#include <string>
#include <vector>

namespace {

using Texts = std::vector<std::string>;
const Texts s_whole{"north & south", "east"};

std::string envelope(const std::string& result) {
    return "<e:Envelope xmlns:e='http://schemas.xmlsoap.org/soap/envelope/'><e:Body><r>" + result +
           "</r></e:Body></e:Envelope>";
}

const std::string s_good = envelope("<result><item>north &amp; south</item><item>east</item></result>");
std::string byChunks() { // one ends within a name, the next within an entity
    const std::string& all = s_good;
    const std::size_t name = all.find("esult>") + 1;
    const std::size_t entity = all.find("amp;") + 1;
    std::string bytes = "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\nTransfer-Encoding: chunked\r\n\r\n";
    for (const std::string& piece :
         {all.substr(0, name), all.substr(name, entity - name), all.substr(entity)}) {
        char size[16];
        std::snprintf(size, sizeof size, "%zx\r\n", piece.size());
        bytes += size + piece + "\r\n";
    }
    return bytes + "0\r\n\r\n";
}

std::string inParts() { // read to its end; nothing refers to the second part
    const std::string body = "--B\r\nContent-Type: text/xml\r\n\r\n" + s_good +
                             "\r\n--B\r\nContent-Type: text/csv\r\nContent-ID: <a>\r\n\r\nname,total" +
                             "\r\n--B--";
    return reply(body, "200 OK", "multipart/related; boundary=B; type=\"text/xml\"");
}

std::string timeLimit(const char* milliseconds) {
    return ConfigurationFile::withParameters(ConfigurationFile::parameter(
        "bus", ConfigurationFile::parameter("receive-time-limit", milliseconds)));
}

class EveryByte : public testing::TestWithParam<std::string (*)()> {
protected:
    void SetUp() override {
        MRLDocIo::initialize(); // for attachments
        m_session.setURI(m_peer.url());
    }
    void TearDown() override { MRLDocIo::terminate(); }

    /// @return the code of the failure the call ended in; 0 with the whole reply.
    int ask(const Texts& expected = s_whole) {
        const HBLSmartPointer<MRLPortTypeBinding> call(
            MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
                MRLMessageI::eMRLContentQueryTenantMembership_Request));
        const auto& output =
            static_cast<const MRLContentQueryTenantMembership_Reply&>(call->getOutputMessage());
        int code = 0;
        try {
            m_session.submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
        } catch (const TavelTKException& e) {
            code = e.getErrorCode();
        }
        Texts held;
        if (const MRLStringArray* const result = output.getResult()) {
            held.assign(result->begin(), result->end());
        }
        if (code == 0 || !held.empty()) { // a parameter enters its message once it is complete
            EXPECT_EQ(expected, held);
        }
        return code;
    }

    const std::string m_whole = GetParam()();
    ScriptedPeer m_peer;
    MRLTavelHeader m_header;
    MRLSOAPSession m_session{&m_header, nullptr, nullptr, nullptr, nullptr, "test"};
};

TEST_P(EveryByte, MayBeTheLastBeforeTheConnectionEnds) {
    const ConfigurationFile hangs(timeLimit("5000")); // would end in a code of their own
    for (const Answer::After how : {Answer::close, Answer::reset}) {
        for (std::size_t length = 0; length < m_whole.size(); ++length) {
            SCOPED_TRACE((how == Answer::reset ? "reset after " : "closed after ") +
                         m_whole.substr(0, length));
            m_peer.add({m_whole.substr(0, length), how});
            m_peer.add({m_whole});
            const int code = ask();
            // A reset may overtake what was sent before it; then nothing has begun.
            const bool nothingCame = length == 0 || (how == Answer::reset && code != 0);
            ASSERT_EQ(nothingCame ? static_cast<int>(TavelTKError::closedBeforeReply) : 0, code);
            if (nothingCame) {
                ASSERT_EQ(0, ask()) << "the whole answer was not asked for before";
            }
        }
    }
}

TEST_P(EveryByte, MayBeTheLastBeforeThePeerFallsSilent) {
    const std::size_t body = m_whole.find("\r\n\r\n") + 4;
    std::set<std::size_t> lengths{0, 5, body - 1, body, m_whole.size() - 1};
    for (std::size_t length = 11; length < m_whole.size(); length += 11) { // each costs the limit
        lengths.insert(length);
    }
    for (const std::size_t length : lengths) {
        SCOPED_TRACE(m_whole.substr(0, length));
        m_peer.add({m_whole.substr(0, length), Answer::silence});
        {
            const ConfigurationFile brief(timeLimit("30"));
            ASSERT_EQ(static_cast<int>(TavelTKError::receiveTimedOut), ask());
        }
        m_peer.add({m_whole});
        ASSERT_EQ(0, ask());
    }
}

TEST_P(EveryByte, LeavesNothingBehindInAnEmptyReplyThatFollows) {
    m_peer.add({m_whole.substr(0, m_whole.size() - 1), Answer::close});
    m_peer.add({reply(envelope(""))});
    EXPECT_EQ(0, ask({}));
}

constexpr std::array NAMES{"ByLength", "ByChunks", "InParts"};

INSTANTIATE_TEST_SUITE_P(Session, EveryByte,
                         testing::Values(
                             +[] { return reply(s_good); }, &byChunks, &inParts),
                         [](const auto& row) { return NAMES[row.index]; });

} // namespace
