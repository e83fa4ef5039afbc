#pragma once

#include "Session/detail/BusFactory.h"
#include "fault/FailingAllocations.h"

#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"
#include "TavelTK/TavelTK.h"
#include "TavelTK/TavelTKMessageReader.h"
#include "TavelTK/TavelTKMessageWriter.h"
#include "TavelTK/TavelTKSession.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace mrl::test {

/// A bus that answers from a script and notes every call made on it, in order.
/// Only one at a time: it stands in for the process-wide maker of session factories.
class FakeBus {
public:
    /// What one exchange of the script does.
    struct Step {
        std::string reply; ///< the envelope that is read
        std::function<void(const std::string& operation)>
            operate; ///< called first in every operation; may throw
    };

    FakeBus() {
        s_current = this;
        m_before = detail::replaceBusFactoryMaker(+[]() -> TavelTK* { return new Factory(*s_current); });
    }
    ~FakeBus() {
        detail::replaceBusFactoryMaker(m_before);
        s_current = nullptr;
    }
    FakeBus(const FakeBus&) = delete;
    FakeBus& operator=(const FakeBus&) = delete;

    void answer(std::string reply) { m_script.push_back({std::move(reply), {}}); }
    void script(Step step) { m_script.push_back(std::move(step)); }

    std::vector<std::string> calls;    ///< every operation with its arguments
    std::vector<std::string> requests; ///< the envelope of each exchange
    int live = 0;                      ///< factories and sessions not given back yet

    std::function<void()> beforeEach; ///< called before an operation is noted

private:
    void note(const std::string& operation) {
        const Aside aside; // what a test notes never fails for want of memory
        if (beforeEach) {
            beforeEach();
        }
        calls.push_back(operation);
    }
    [[noreturn]] static void unused() { throw std::logic_error("an operation that a session never calls"); }

    struct NotedOutput : PLQOutputStream {
        void write(const char* data, std::size_t length) override { bytes.append(data, length); }
        std::string bytes;
    };

    struct Session;

    struct Writer final : TavelTKMessageWriter {
        explicit Writer(Session& owner)
            : session(owner) {}
        void setEnvelope(HBLIDOM_Element&) override { unused(); }
        PLQOutputStream& openEnvelope(const char* soapAction) override {
            session.note(std::string("openEnvelope ") + soapAction);
            return out;
        }
        PLQOutputStream& openEnvelope() override { unused(); }
        void closeEnvelope(PLQOutputStream&) override { session.note("closeEnvelope"); }
        void addAttachment(const char*, const char*, const char*, const char*, std::size_t,
                           const char*) override {
            unused();
        }
        void addAttachment(const char*, const char*, const char*, std::size_t, const char*) override {
            unused();
        }
        void addAttachment(HBLIDOM_Element&, const char*) override { unused(); }
        PLQOutputStream& openAttachment(const char* contentType, const char* encoding, const char* headers,
                                        const char* contentId, int flag) override {
            session.note("openAttachment " + std::string(contentType) + " " +
                         (encoding == nullptr ? "-" : encoding) + " [" + headers + "] " + contentId + " " +
                         std::to_string(flag));
            return out;
        }
        PLQOutputStream& openAttachment(const char*, const char*, const char*, int) override { unused(); }
        void closeAttachment(PLQOutputStream&) override { session.note("closeAttachment"); }
        std::string* getNewAttachmentID() override { unused(); }
        void close() override { unused(); }
        void setResponseStatus(int, const char*) override { unused(); }
        Session& session;
        NotedOutput out;
    };

    struct Reader final : TavelTKMessageReader {
        explicit Reader(Session& owner)
            : TavelTKMessageReader(1)
            , session(owner) {}
        void getEnvelope(HBLIDOM_Node&) override { unused(); }
        PLQInputStream& openEnvelope() override {
            session.note("openEnvelope(reply)");
            in.emplace(session.step.reply.data(), session.step.reply.size());
            return *in;
        }
        void closeEnvelope(PLQInputStream&) override { session.note("closeEnvelope(reply)"); }
        int canHaveAttachments() override { return 0; }
        int hasMoreAttachments() override { return 0; }
        TavelTKAttachmentReader& openNextAttachment() override { unused(); }
        void closeAttachment(TavelTKAttachmentReader&) override { unused(); }
        const char* getHeader(const char*) override { unused(); }
        Session& session;
        std::optional<PLQMemoryInputStream> in;
    };

    struct Session final : TavelTKSession {
        Session(FakeBus& owner, Step scripted)
            : bus(owner)
            , step(std::move(scripted)) {
            ++bus.live;
        }
        ~Session() override { --bus.live; }
        void setProperty(const std::string& name, int value) override {
            note("setProperty " + name + " " + std::to_string(value));
        }
        void setProperty(const std::string&, const std::string&) override { unused(); }
        void echo(const char* fileName, const char* mode, int flag) override {
            note(std::string("echo ") + fileName + " " + mode + " " + std::to_string(flag));
        }
        using TavelTKSession::echo;
        void doRequest(HBLIDOM_Element&, HBLIDOM_Node&) override { unused(); }
        void sendRequest(HBLIDOM_Element&) override { unused(); }
        void getResponse(HBLIDOM_Node&) override { unused(); }
        TavelTKMessageWriter& openRequest(int hasAttachments) override {
            note("openRequest " + std::to_string(hasAttachments));
            return writer;
        }
        void closeRequest(TavelTKMessageWriter&) override {
            const Aside aside;
            bus.requests.push_back(writer.out.bytes);
            note("closeRequest");
        }
        TavelTKMessageReader& openResponse() override {
            note("openResponse");
            return reader;
        }
        void closeResponse(TavelTKMessageReader&) override { note("closeResponse"); }
        void release() override {
            bus.note("release");
            delete this;
        }
        void note(const std::string& operation) {
            bus.note(operation);
            if (step.operate) {
                step.operate(operation);
            }
        }
        FakeBus& bus;
        Step step;
        Writer writer{*this};
        Reader reader{*this};
    };

    struct Factory final : TavelTK {
        explicit Factory(FakeBus& owner)
            : bus(owner) {
            ++bus.live;
        }
        ~Factory() override {
            --bus.live;
            bus.note("delete factory");
        }
        void setProperty(const std::string&, int) override { unused(); }
        void setProperty(const std::string& name, const std::string& value) override {
            bus.note("setProperty(factory) " + name + " " + value);
        }
        TavelTKSession* getSession(char* url, char* sessionConfig, int timeLimit) override {
            bus.note(std::string("getSession ") + url + " " + sessionConfig + " " +
                     std::to_string(timeLimit));
            if (bus.m_script.empty()) {
                return nullptr;
            }
            Step step = std::move(bus.m_script.front());
            bus.m_script.pop_front();
            return new Session(bus, std::move(step));
        }
        TavelTKSession* getSession(HBLIDOM_Element&, char*, int) override { unused(); }
        TavelTKSession* getSession(const char*, int, const char*, char*, int) override { unused(); }
        using TavelTK::getServerSocket;
        TavelTKServerSocket* getServerSocket(int, char*) override { unused(); }
        TavelTKServerSession* getServerSession(TavelTKSocket*) override { unused(); }
        TavelTKSocket* getSocket() override { unused(); }
        FakeBus& bus;
    };

    static inline FakeBus* s_current = nullptr;
    std::deque<Step> m_script;
    detail::BusFactoryMaker m_before = nullptr;
};

} // namespace mrl::test
