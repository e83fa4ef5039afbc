#include "Common/MRLPLQMemoryOutputStream.h"
#include "Common/PLQEchoInputStream.h"
#include "Common/PLQEchoOutputStream.h"
#include "Common/PLQEchoOutputStream2.h"

#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQMemoryInputStream.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

using testing::ElementsAre;

namespace {

using Log = std::vector<std::string>;

/// Notes every call; fails the one named.
class LoggedOutput : public PLQOutputStream {
public:
    LoggedOutput(Log& log, std::string name, std::string failing = "")
        : m_log(log)
        , m_name(std::move(name))
        , m_failing(std::move(failing)) {}
    ~LoggedOutput() override { m_log.push_back(m_name + ".delete"); }
    void write(const char* data, std::size_t length) override { note("write " + std::string(data, length)); }
    void flush() override { note("flush"); }
    void close() override { note("close"); }

private:
    void note(const std::string& call) {
        m_log.push_back(m_name + "." + call);
        if (call == m_failing)
            throw HBLIllegalStateError(0, "told to fail");
    }

    Log& m_log;
    std::string m_name;
    std::string m_failing;
};

template <class Error, class F>
std::string textOf(F&& step) {
    try {
        step();
    } catch (const Error& e) {
        return e.getMessage();
    }
    return "nothing thrown";
}

/// Gives the scripted results: texts, then `end` for ever.
class ScriptedInput : public PLQInputStream {
public:
    ScriptedInput(std::vector<std::string> pieces, std::size_t end)
        : m_pieces(std::move(pieces))
        , m_end(end) {}
    using PLQInputStream::read;
    std::size_t read(char* buffer, std::size_t count) override {
        if (m_next == m_pieces.size())
            return m_end;
        const std::string& piece = m_pieces[m_next++];
        return piece.copy(buffer, count);
    }

private:
    std::vector<std::string> m_pieces;
    std::size_t m_next = 0;
    std::size_t m_end;
};

} // namespace

TEST(PLQEchoOutputStream, WritesAndClosesTheDownstreamFirst) {
    Log log;
    LoggedOutput down(log, "down");
    LoggedOutput echo(log, "echo");
    {
        PLQEchoOutputStream tee(down, echo);
        tee.write("a", 1);
        tee.flush();
        tee.close();
    }
    EXPECT_THAT(log, ElementsAre("down.write a", "echo.write a", "down.flush", "down.close", "echo.close",
                                 "echo.flush"));
}

TEST(PLQEchoOutputStream, KeepsFromTheTargetWhatTheDownstreamRefused) {
    Log log;
    LoggedOutput down(log, "down", "write a");
    LoggedOutput echo(log, "echo", "flush");
    {
        PLQEchoOutputStream tee(down, echo);
        EXPECT_THROW(tee.write("a", 1), HBLIllegalStateError);
    } // the failing flush of the target is swallowed
    EXPECT_THAT(log, ElementsAre("down.write a", "echo.flush"));
}

TEST(PLQEchoOutputStream, NeedsADownstreamButNoTarget) {
    PLQEchoOutputStream tee;
    EXPECT_EQ(textOf<HBLAssertError>([&] { tee.write("a", 1); }), "HBL_ASSERT(p_downstream);");
    EXPECT_EQ(textOf<HBLAssertError>([&] { tee.close(); }), "HBL_ASSERT(p_downstream);");
    Log log;
    LoggedOutput down(log, "down");
    tee.wrap(down);
    tee.write("a", 1);
    tee.close();
    EXPECT_THAT(log, ElementsAre("down.write a", "down.close"));
}

TEST(PLQEchoOutputStream, KeepsItsTargetWhenWrappedAnewAndLosesItWhenUnwrapped) {
    Log log;
    LoggedOutput first(log, "first");
    LoggedOutput second(log, "second");
    LoggedOutput echo(log, "echo");
    PLQEchoOutputStream tee;
    tee.wrap(first, echo);
    tee.wrap(second);
    tee.write("a", 1);
    tee.unWrap();
    tee.wrap(first);
    tee.write("b", 1);
    EXPECT_THAT(log, ElementsAre("second.write a", "echo.write a", "first.write b"));
}

TEST(PLQEchoOutputStream, LeavesTheDownstreamAloneWhenItDies) {
    Log log;
    LoggedOutput echo(log, "echo");
    {
        PLQEchoOutputStream tee;
        LoggedOutput down(log, "down"); // dies first, like the stream of a recorded session
        tee.wrap(down, echo);
    }
    EXPECT_THAT(log, ElementsAre("down.delete", "echo.flush"));
}

TEST(PLQEchoOutputStream2, DeletesItsTargetsWhenItOwnsThem) {
    Log log;
    {
        PLQEchoOutputStream2 both(new LoggedOutput(log, "one"), new LoggedOutput(log, "two"));
        both.write("a", 1);
        both.flush();
        both.close();
    }
    EXPECT_THAT(log, ElementsAre("one.write a", "two.write a", "one.flush", "two.flush", "one.close",
                                 "two.close", "one.flush", "two.flush", "one.delete", "two.delete"));
}

TEST(PLQEchoOutputStream2, FlushesButDoesNotDeleteWhatItBorrows) {
    Log log;
    LoggedOutput one(log, "one");
    LoggedOutput two(log, "two");
    { PLQEchoOutputStream2 both(one, two); }
    EXPECT_THAT(log, ElementsAre("one.flush", "two.flush"));
}

TEST(PLQEchoOutputStream2, EndsAtTheFirstFailure) {
    Log log;
    {
        PLQEchoOutputStream2 both(new LoggedOutput(log, "one", "flush"), new LoggedOutput(log, "two"));
        EXPECT_THROW(both.flush(), HBLIllegalStateError);
    }
    EXPECT_THAT(log, ElementsAre("one.flush", "one.flush", "one.delete", "two.delete"));
}

TEST(PLQEchoOutputStream2, RefusesANullTargetAndDeletesTheOther) {
    Log log;
    EXPECT_THROW(PLQEchoOutputStream2(new LoggedOutput(log, "one"), nullptr), HBLAssertError);
    EXPECT_THROW(PLQEchoOutputStream2(nullptr, new LoggedOutput(log, "two")), HBLAssertError);
    EXPECT_THAT(log, ElementsAre("one.delete", "two.delete"));
}

TEST(PLQEchoInputStream, EchoesWhatWasReadAndNothingAtTheEnd) {
    for (std::size_t end : {std::size_t{0}, PLQInputStream::endOfStream}) {
        Log log;
        LoggedOutput echo(log, "echo");
        ScriptedInput in({"abc", "de", "f"}, end);
        {
            PLQEchoInputStream tee(in, echo);
            char block[8];
            EXPECT_EQ(tee.read(block, 8), 3u);
            HBLByteBuffer buffer(1, 4, 0);
            buffer.appendChars(">", 1);
            EXPECT_EQ(tee.read(buffer, 8), 2u);
            EXPECT_STREQ(buffer.str(), ">de");
            EXPECT_EQ(tee.read(), 'f');
            EXPECT_EQ(tee.read(block, 8), end);
            EXPECT_EQ(tee.read(buffer, 8), end);
            EXPECT_EQ(buffer.pcount(), 3u);
            EXPECT_EQ(tee.read(), -1);
            EXPECT_EQ(tee.canUnread(), 0);
        }
        EXPECT_THAT(log, ElementsAre("echo.write abc", "echo.write de", "echo.write f", "echo.flush"));
    }
}

TEST(PLQEchoInputStream, ReadsAByteWithItsSign) {
    MRLPLQMemoryOutputStream echo(16);
    PLQMemoryInputStream in("\x7F\x80\xFF", 3);
    PLQEchoInputStream tee(in, echo);
    EXPECT_EQ(tee.read(), 0x7F);
    EXPECT_EQ(tee.read(), -128);
    EXPECT_EQ(tee.read(), -1);
    EXPECT_STREQ(echo.bytes(), "\x7F\x80\xFF");
}

TEST(PLQEchoInputStream, RefusesWorkOnceUnwrapped) {
    Log log;
    LoggedOutput echo(log, "echo");
    PLQMemoryInputStream in("abc", 3);
    PLQEchoInputStream tee(in, echo);
    tee.unWrap();
    char block[4];
    HBLByteBuffer buffer(1, 4, 0);
    const std::string text = "PLQEchoInputStream::unWrap";
    EXPECT_EQ(textOf<HBLIllegalStateError>([&] { tee.read(block, 4); }), text);
    EXPECT_EQ(textOf<HBLIllegalStateError>([&] { tee.read(buffer, 4); }), text);
    EXPECT_EQ(textOf<HBLIllegalStateError>([&] { tee.read(); }), text);
    EXPECT_EQ(textOf<HBLIllegalStateError>([&] { tee.unWrap(); }), text);
    EXPECT_THAT(log, ElementsAre("echo.flush"));
}

TEST(MRLPLQMemoryOutputStream, CollectsAcrossCloseAndForgetsOnReset) {
    MRLPLQMemoryOutputStream memory(4);
    const std::string piece(300, 'x'); // beyond one step of growth
    for (int i = 0; i < 10; ++i)
        memory.write(piece.data(), piece.size());
    memory.flush();
    memory.close();
    memory.write("\0y", 2);
    EXPECT_EQ(memory.length(), 3002);
    EXPECT_EQ(std::string(memory.bytes(), 3003), std::string(3000, 'x') + std::string("\0y\0", 3));
    memory.reset();
    EXPECT_EQ(memory.length(), 0);
    EXPECT_STREQ(memory.bytes(), "");
    EXPECT_THROW(MRLPLQMemoryOutputStream(-1), HBLAssertError);
}
