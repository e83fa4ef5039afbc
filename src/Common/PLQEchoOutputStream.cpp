#include "Common/PLQEchoOutputStream.h"

#include "HBLCore/HBLFailure.h"

PLQEchoOutputStream::PLQEchoOutputStream(PLQOutputStream& out)
    : PLQFilterOutputStream(out) {}

PLQEchoOutputStream::PLQEchoOutputStream(PLQOutputStream& out, PLQOutputStream& echoTarget)
    : PLQFilterOutputStream(out)
    , m_pEchoTarget(&echoTarget) {}

PLQEchoOutputStream::~PLQEchoOutputStream() {
    try {
        if (p_downstream)
            PLQFilterOutputStream::unWrap();
        if (m_pEchoTarget)
            m_pEchoTarget->flush();
    } catch (...) { // documented: a destructor reports nothing
    }
    m_pEchoTarget = nullptr;
}

void PLQEchoOutputStream::write(const char* data, std::size_t length) {
    HBL_ASSERT(p_downstream);
    p_downstream->write(data, length);
    if (m_pEchoTarget)
        m_pEchoTarget->write(data, length);
}

void PLQEchoOutputStream::close() {
    HBL_ASSERT(p_downstream);
    p_downstream->close();
    if (m_pEchoTarget)
        m_pEchoTarget->close();
}

void PLQEchoOutputStream::wrap(PLQOutputStream& out) {
    PLQFilterOutputStream::wrap(out);
}

void PLQEchoOutputStream::unWrap() {
    PLQFilterOutputStream::unWrap();
    m_pEchoTarget = nullptr;
}

void PLQEchoOutputStream::wrap(PLQOutputStream& out, PLQOutputStream& echoTarget) {
    wrap(out);
    m_pEchoTarget = &echoTarget;
}
