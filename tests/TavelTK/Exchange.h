#pragma once

#include "support/ScriptedPeer.h"
#include "support/Table.h"
#include "support/Threads.h"

#include "PLQStreams/PLQInputStream.h"
#include "PLQStreams/PLQOutputStream.h"
#include "TavelTK/TavelTK.h"
#include "TavelTK/TavelTKAttachmentReader.h"
#include "TavelTK/TavelTKException.h"
#include "TavelTK/TavelTKMessageReader.h"
#include "TavelTK/TavelTKMessageWriter.h"
#include "TavelTK/TavelTKSession.h"
#include "TavelTK/detail/ConnectionPool.h"
#include "TavelTK/detail/HttpTavelTK.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// A clock that goes on only when a test says so.
class FakeClock : public mrl::detail::Clock {
public:
    mrl::detail::TimePoint now() const override { return m_now += m_step; }
    void advance(mrl::detail::milliseconds time) { m_now += time; }
    /// Each look at the clock takes that long.
    void setStep(mrl::detail::milliseconds step) { m_step = step; }

private:
    mutable mrl::detail::TimePoint m_now = std::chrono::steady_clock::now();
    mrl::detail::milliseconds m_step{0};
};

/// A factory with a pool of its own and tokens that tests know beforehand.
struct Toolkit {
    mrl::detail::ConnectionPool pool;
    std::unique_ptr<TavelTK> factory;

    explicit Toolkit(const mrl::detail::Clock& clock = mrl::detail::Clock::steady())
        : factory(std::make_unique<mrl::detail::HttpTavelTK>(
              mrl::detail::Surroundings{pool, clock, [] { return std::string("token"); }})) {}
};

struct Releaser {
    void operator()(TavelTKSession* session) const { session->release(); }
};
using SessionPtr = std::unique_ptr<TavelTKSession, Releaser>;

inline SessionPtr session(TavelTK& factory, std::string url, int timeLimit = 1000, std::string config = "") {
    return SessionPtr(factory.getSession(url.data(), config.data(), timeLimit));
}

inline std::string readAll(PLQInputStream& in, std::size_t pieces = 4096) {
    std::string text;
    std::string piece(pieces, '\0');
    for (std::size_t count = 0; !PLQInputStream::isEnd(count = in.read(piece.data(), pieces));)
        text.append(piece, 0, count);
    return text;
}

inline void sendEnvelope(TavelTKSession& session, const std::string& envelope) {
    TavelTKMessageWriter& writer = session.openRequest(0);
    PLQOutputStream& out = writer.openEnvelope("urn:action");
    out.write(envelope.data(), envelope.size());
    writer.closeEnvelope(out);
    session.closeRequest(writer);
}

inline std::string receiveEnvelope(TavelTKSession& session) {
    TavelTKMessageReader& reader = session.openResponse();
    PLQInputStream& in = reader.openEnvelope();
    std::string envelope = readAll(in);
    reader.closeEnvelope(in);
    session.closeResponse(reader);
    return envelope;
}

/// One plain exchange from getSession to release. @return the envelope of the reply
inline std::string call(TavelTK& factory, const std::string& url, const std::string& envelope = "<e/>") {
    const SessionPtr exchange = session(factory, url);
    sendEnvelope(*exchange, envelope);
    return receiveEnvelope(*exchange);
}

/// Runs `step` and expects it to end in the failure of that name, with `words` in its message.
inline void expectFailure(const std::function<void()>& step, const std::string& error,
                          const std::string& words) {
    try {
        step();
        ADD_FAILURE() << "nothing was thrown instead of " << error;
    } catch (const TavelTKException& e) {
        EXPECT_EQ(findTavelTKError(e.getErrorCode())->name, error) << e.getMessage();
        EXPECT_NE(std::string(e.getMessage()).find(words), std::string::npos) << e.getMessage();
        EXPECT_FALSE(e.getBackTrace().empty());
    }
}

inline void expectFailure(const std::function<void()>& step, TavelTKError error, const std::string& words) {
    expectFailure(step, findTavelTKError(static_cast<int>(error))->name, words);
}

/// What a peer does after an answer, by its name.
inline Answer::After afterwards(const std::string& name) {
    return name == "keep"      ? Answer::keep
           : name == "close"   ? Answer::close
           : name == "reset"   ? Answer::reset
           : name == "silence" ? Answer::silence
                               : Answer::cut;
}
