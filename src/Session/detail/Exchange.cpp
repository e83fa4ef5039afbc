#include "Session/detail/Exchange.h"

#include "Session/MRLSOAPSession.h"

#include "HBLCore/HBLFailure.h"
#include "TavelTK/TavelTK.h"
#include "TavelTK/TavelTKSession.h"

#include <utility>

namespace mrl::detail {

namespace {

constexpr int ATTACHMENT_CHUNK_SIZE = 0x20000;

template <class Step>
void swallowing(Step step) noexcept {
    try {
        step();
    } catch (...) { // the failure that led here is the one to report
    }
}

} // namespace

Exchange::Exchange(std::string url, std::string configDoc, bool hasAttachments)
    : m_url(std::move(url))
    , m_configDoc(std::move(configDoc))
    , m_hasAttachments(hasAttachments) {}

Exchange::~Exchange() {
    giveBack();
}

void Exchange::own(std::unique_ptr<TavelTK> factory) {
    m_ownedFactory = std::move(factory);
    m_factory = m_ownedFactory.get();
}

void Exchange::borrow(TavelTK* factory) {
    m_ownedFactory.reset();
    m_factory = factory;
}

void Exchange::begin(const char* echoFile) {
    TavelTK* const pSessionFactory = m_factory;
    HBL_ASSERT(pSessionFactory);
    m_session = pSessionFactory->getSession(m_url.data(), m_configDoc.data(), MRLSOAPSession::TIME_LIMIT);
    TavelTKSession* const session = m_session;
    HBL_ASSERT(session);
    if (echoFile != nullptr) {
        session->echo(echoFile, "wb", 1);
    }
    session->setProperty("send-content-length", m_hasAttachments ? 0 : 1);
    if (m_hasAttachments) {
        session->setProperty("chunk-size", ATTACHMENT_CHUNK_SIZE);
    }
}

TavelTKMessageWriter& Exchange::openRequest(int hasAttachments) {
    m_writer = &m_session->openRequest(hasAttachments);
    return *m_writer;
}

void Exchange::closeRequest() {
    m_session->closeRequest(*m_writer);
    m_writer = nullptr;
}

TavelTKMessageReader& Exchange::openResponse() {
    m_reader = &m_session->openResponse();
    return *m_reader;
}

void Exchange::closeResponse() {
    m_session->closeResponse(*m_reader);
    m_reader = nullptr;
}

void Exchange::release() {
    TavelTKSession* const session = std::exchange(m_session, nullptr);
    session->release();
}

void Exchange::abandon() {
    if (m_reader != nullptr) {
        closeResponse();
    }
    m_writer = nullptr;
    if (m_session != nullptr) {
        release();
    }
}

void Exchange::giveBack() noexcept {
    if (m_session == nullptr) {
        return;
    }
    if (TavelTKMessageWriter* writer = std::exchange(m_writer, nullptr)) {
        swallowing([&] { m_session->closeRequest(*writer); });
    }
    if (TavelTKMessageReader* reader = std::exchange(m_reader, nullptr)) {
        swallowing([&] { m_session->closeResponse(*reader); });
    }
    swallowing([&] { release(); });
}

} // namespace mrl::detail
