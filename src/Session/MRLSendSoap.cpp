#include "Session/MRLSendSoap.h"

#include "Common/detail/Swallowing.h"
#include "Session/detail/BusFactory.h"
#include "Session/detail/Wire.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLReportServicePortType.h"

#include "HBLCore/HBLFailure.h"
#include "PLQStreams/PLQInputStream.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQOutputStream.h"
#include "TavelTK/TavelTK.h"
#include "TavelTK/TavelTKAttachmentReader.h"
#include "TavelTK/TavelTKMessageReader.h"
#include "TavelTK/TavelTKMessageWriter.h"
#include "TavelTK/TavelTKSession.h"

#include <array>
#include <cstring>
#include <utility>

const char* const MRLSendSoap::SESSION_CONFIG_DOC =
    "<sessionConfigDocument><serviceID>RENQ</serviceID></sessionConfigDocument>";

namespace {

using mrl::detail::swallowing;

constexpr std::size_t PIECE_SIZE = 4092;

/// The bus as it is held by one exchange; what is still held at its end goes back, writer first.
class RawExchange {
public:
    RawExchange() = default;
    ~RawExchange() {
        if (m_writer != nullptr) {
            swallowing([this] { m_session->closeRequest(*m_writer); });
        }
        if (m_attachment != nullptr) {
            swallowing([this] { m_reader->closeAttachment(*m_attachment); });
        }
        if (m_reader != nullptr) {
            swallowing([this] { m_session->closeResponse(*m_reader); });
        }
        if (m_session != nullptr) {
            swallowing([this] { m_session->release(); });
        }
    }
    RawExchange(const RawExchange&) = delete;
    RawExchange& operator=(const RawExchange&) = delete;

    void begin(const char* url) {
        const std::unique_ptr<TavelTK>& pSessionFactory = m_factory;
        HBL_ASSERT(pSessionFactory);
        // The bus takes pointers to char for history's sake, and writes to neither.
        TavelTKSession* const pSession =
            m_factory->getSession(const_cast<char*>(url), const_cast<char*>(MRLSendSoap::SESSION_CONFIG_DOC),
                                  MRLSendSoap::TIME_LIMIT);
        HBL_ASSERT(pSession);
        m_session = pSession;
        m_session->setProperty("send-content-length", 1);
    }

    void send(const char* requestMessage, const char* soapAction) {
        m_writer = &m_session->openRequest(0);
        PLQOutputStream& stream = m_writer->openEnvelope(soapAction);
        stream.write(requestMessage, std::strlen(requestMessage));
        m_writer->closeEnvelope(stream);
        m_session->closeRequest(*std::exchange(m_writer, nullptr));
    }

    void receive(std::string& responseMessage, std::string& attachment) {
        m_reader = &m_session->openResponse();
        PLQInputStream& in = m_reader->openEnvelope();
        readAll(in, responseMessage);
        m_reader->closeEnvelope(in);
        if (m_reader->hasMoreAttachments() != 0) {
            m_attachment = &m_reader->openNextAttachment();
            readAll(m_attachment->getInputStream(), attachment);
            m_reader->closeAttachment(*std::exchange(m_attachment, nullptr));
        }
        m_session->closeResponse(*std::exchange(m_reader, nullptr));
    }

    void release() { std::exchange(m_session, nullptr)->release(); }

private:
    static void readAll(PLQInputStream& in, std::string& text) {
        text.clear();
        std::array<char, PIECE_SIZE> piece;
        for (;;) {
            const std::size_t length = in.read(piece.data(), piece.size());
            if (PLQInputStream::isEnd(length)) {
                return;
            }
            text.append(piece.data(), length);
        }
    }

    std::unique_ptr<TavelTK> m_factory = mrl::detail::createBusFactory();
    TavelTKSession* m_session = nullptr;             // goes back by release()
    TavelTKMessageWriter* m_writer = nullptr;        // of m_session
    TavelTKMessageReader* m_reader = nullptr;        // of m_session
    TavelTKAttachmentReader* m_attachment = nullptr; // of m_reader
};

void exchangeTexts(const char* url, const char* requestMessage, const char* soapAction,
                   std::string& responseMessage, std::string& attachment) {
    try {
        RawExchange exchange;
        exchange.begin(url);
        exchange.send(requestMessage, soapAction);
        exchange.receive(responseMessage, attachment);
        exchange.release();
    } catch (HBLThrowable& e) {
        HBL_RETHROW("MRLSendSoap::send()");
    } catch (...) {
        HBL_THROW(HBLUnknownError(0, "MRLSendSoap::send()"), "MRLSendSoap::send()");
    }
}

void throwFault(const std::string& responseMessage) {
    try {
        PLQMemoryInputStream in(responseMessage.data(), responseMessage.size());
        HBLSmartPointer<MRLPortTypeBinding> message;
        mrl::detail::createDeserializer()->parse(in, {&MRLReportServicePortType::getInstance()}, message);
        HBL_ASSERT_NAMED(FALSE, "Parsing a SOAP Fault should have resulted in an exception being thrown.");
    } catch (HBLThrowable& e) {
        HBL_RETHROW("MRLSendSoap::send");
    }
}

} // namespace

void MRLSendSoap::send(const char* url, const char* requestMessage, const char* soapAction,
                       std::string& responseMessage, std::string& attachment) {
    HBL_ASSERT_NAMED(requestMessage, "The 'requestMessage' cannot be NULL.");
    exchangeTexts(url, requestMessage, soapAction, responseMessage, attachment);
    if (responseMessage.find("<SOAP-ENV:Fault>") != std::string::npos) {
        throwFault(responseMessage);
    }
}
