// Connections: kept, shared, replaced, given up in time.

#include "Exchange.h"

namespace {

using enum TavelTKError;

TEST(Connection, IsKeptForTheNextExchangeEvenWhenALittleWasLeftUnread) {
    ScriptedPeer peer({{reply("<r/>")}, {reply("<r/>" + std::string(20000, ' '))}, {reply("<r/>")}});
    Toolkit toolkit;
    call(*toolkit.factory, peer.url());
    {
        const SessionPtr exchange = session(*toolkit.factory, peer.url());
        sendEnvelope(*exchange, "<e/>");
        TavelTKMessageReader& reader = exchange->openResponse();
        char start[4];
        reader.openEnvelope().read(start, sizeof start);
        exchange->closeResponse(reader);
    }
    call(*toolkit.factory, peer.url());
    EXPECT_EQ(peer.connections(), 1);
}

TEST(Connection, IsNotKeptWhenThePeerSaysSoOrMuchIsUnreadOrTooMuchCame) {
    const std::vector<std::string> replies{
        reply("<r/>", "200 OK", "text/xml", "Connection: Keep, close\r\n"),
        "HTTP/1.0 200 OK\r\nContent-Type: text/xml\r\nContent-Length: 4\r\n\r\n<r/>", reply("<r/>") + "more"};
    for (const std::string& bytes : replies) {
        ScriptedPeer peer({{bytes}, {reply("<r/>")}});
        Toolkit toolkit;
        call(*toolkit.factory, peer.url());
        EXPECT_EQ(call(*toolkit.factory, peer.url()), "<r/>");
        EXPECT_EQ(peer.connections(), 2) << bytes;
    }
}

TEST(Connection, ThatThePeerClosedMeanwhileIsReplacedBeforeAnythingIsSent) {
    ScriptedPeer peer({{reply("<r/>"), Answer::close}, {reply("<r/>")}});
    Toolkit toolkit;
    call(*toolkit.factory, peer.url());
    ASSERT_EQ(toolkit.pool.size(), 1u);
    while (peer.open() != 0)
        std::this_thread::yield();
    EXPECT_EQ(call(*toolkit.factory, peer.url(), "<second/>"), "<r/>");
    EXPECT_EQ(peer.connections(), 2);
    EXPECT_TRUE(peer.request(1).ends_with("<second/>"));
}

TEST(Connection, IsRefusedWhereNobodyListens) {
    std::string url;
    {
        const ScriptedPeer gone;
        url = gone.url();
    }
    Toolkit toolkit;
    expectFailure([&] { call(*toolkit.factory, url); }, connectionRefused, "connecting to 127.0.0.1:");
}

TEST(Connection, ToANameThatCannotExistIsAnUnknownHost) {
    Toolkit toolkit; // a label longer than any name server may be asked for
    expectFailure([&] { call(*toolkit.factory, "http://" + std::string(70, 'x') + "/"); }, hostUnknown,
                  "xxx:80: ");
}

TEST(TimeLimit, CoversTheWholeExchangeFromItsFirstStep) {
    FakeClock clock;
    ScriptedPeer peer({{"", Answer::silence}});
    Toolkit toolkit(clock);
    {
        const SessionPtr exchange = session(*toolkit.factory, peer.url(), 5);
        sendEnvelope(*exchange, "<e/>");
        clock.advance(mrl::detail::milliseconds(5000));
        expectFailure([&] { receiveEnvelope(*exchange); }, receiveTimedOut,
                      "the exchange's time limit of 5 s has passed");
    }
    clock.setStep(mrl::detail::milliseconds(3000));
    expectFailure([&] { sendEnvelope(*session(*toolkit.factory, peer.url(), 5), "<e/>"); }, connectTimedOut,
                  "time limit of 5 s");
}

TEST(TimeLimit, EndsARequestThatThePeerDoesNotTake) {
    ScriptedPeer peer({{"", Answer::silence, false}});
    Toolkit toolkit;
    toolkit.factory->setProperty("send-time-limit", 50);
    expectFailure([&] { call(*toolkit.factory, peer.url(), std::string(64 << 20, 'x')); }, sendTimedOut,
                  "50 ms have passed (send-time-limit)");
}

TEST(Connection, LostWhileSendingIsNoReasonToSendAgain) {
    ScriptedPeer peer({{"", Answer::reset, false}});
    Toolkit toolkit;
    expectFailure([&] { call(*toolkit.factory, peer.url(), std::string(64 << 20, 'x')); }, sendFailed,
                  "sending to");
}

TEST(Pool, IsBoundedPerPeerAndInTimeAndGivesTheLastOneFirst) {
    using namespace mrl::detail;
    ScriptedPeer peer;
    Poco::Net::ServerSocket listener(Poco::Net::SocketAddress("127.0.0.1", 0));
    std::vector<Poco::Net::StreamSocket> accepted;
    ConnectionPool pool;
    const TimePoint start = Clock::steady().now();
    Connection* last = nullptr;
    for (std::size_t i = 0; i < ConnectionPool::maxIdlePerPeer + 3; ++i) {
        auto connection = std::make_unique<Connection>(Poco::Net::StreamSocket(listener.address()));
        accepted.push_back(listener.acceptConnection());
        last = connection.get();
        pool.give("a:1", std::move(connection), start);
    }
    EXPECT_EQ(pool.size(), ConnectionPool::maxIdlePerPeer);
    EXPECT_EQ(pool.take("b:1", start), nullptr);
    EXPECT_EQ(pool.take("a:1", start).get(), last);
    EXPECT_EQ(pool.take("a:1", start + ConnectionPool::maxIdleTime), nullptr);
    EXPECT_EQ(pool.size(), 0u);
}

TEST(Pool, IsSharedByThreadsWithoutMixingTheirReplies) {
    constexpr int threads = 4;
    constexpr int calls = 25;
    ScriptedPeer peer(std::vector<Answer>(threads * calls, {reply("<r/>")}));
    std::atomic<int> good = 0;
    mrl::test::inThreads(threads, [&](int) {
        for (int i = 0; i < calls; ++i) {
            const std::unique_ptr<TavelTK> factory(TavelTK::getSessionFactory());
            good += call(*factory, peer.url()) == "<r/>";
        }
    });
    EXPECT_EQ(good, threads * calls);
    EXPECT_LE(peer.connections(), threads);
}

TEST(Session, CanBeReleasedAtAnyTimeAndTellsWhatIsOutOfOrder) {
    ScriptedPeer peer({{reply("<r/>")}, {reply("<r/>")}});
    Toolkit toolkit;
    session(*toolkit.factory, peer.url());
    {
        const SessionPtr exchange = session(*toolkit.factory, peer.url());
        EXPECT_THROW(exchange->openResponse(), HBLAssertError);
        sendEnvelope(*exchange, "<e/>");
        EXPECT_THROW(exchange->openRequest(0), HBLAssertError);
    }
    const SessionPtr exchange = session(*toolkit.factory, peer.url());
    sendEnvelope(*exchange, "<e/>");
    exchange->openResponse().openEnvelope();
}

} // namespace
