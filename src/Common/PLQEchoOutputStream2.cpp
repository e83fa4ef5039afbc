#include "Common/PLQEchoOutputStream2.h"

#include "HBLCore/HBLFailure.h"

#include <memory>
#include <tuple>

PLQEchoOutputStream2::PLQEchoOutputStream2(PLQOutputStream* target1, PLQOutputStream* target2)
    : m_pEchoTarget1(target1)
    , m_pEchoTarget2(target2)
    , m_ownsTargets(true) {
    std::unique_ptr<PLQOutputStream> owned1(target1);
    std::unique_ptr<PLQOutputStream> owned2(target2);
    HBL_ASSERT(m_pEchoTarget1);
    HBL_ASSERT(m_pEchoTarget2);
    std::ignore = owned1.release(); // the destructor does it from here on
    std::ignore = owned2.release();
}

PLQEchoOutputStream2::PLQEchoOutputStream2(PLQOutputStream& target1, PLQOutputStream& target2)
    : m_pEchoTarget1(&target1)
    , m_pEchoTarget2(&target2)
    , m_ownsTargets(false) {}

PLQEchoOutputStream2::~PLQEchoOutputStream2() {
    try {
        m_pEchoTarget1->flush();
        m_pEchoTarget2->flush();
    } catch (...) { // documented: a destructor reports nothing
    }
    if (m_ownsTargets) {
        delete m_pEchoTarget1;
        delete m_pEchoTarget2;
    }
    m_pEchoTarget1 = nullptr;
    m_pEchoTarget2 = nullptr;
}

void PLQEchoOutputStream2::write(const char* data, std::size_t length) {
    HBL_ASSERT(m_pEchoTarget1);
    m_pEchoTarget1->write(data, length);
    HBL_ASSERT(m_pEchoTarget2);
    m_pEchoTarget2->write(data, length);
}

void PLQEchoOutputStream2::flush() {
    HBL_ASSERT(m_pEchoTarget1);
    m_pEchoTarget1->flush();
    HBL_ASSERT(m_pEchoTarget2);
    m_pEchoTarget2->flush();
}

void PLQEchoOutputStream2::close() {
    HBL_ASSERT(m_pEchoTarget1);
    m_pEchoTarget1->close();
    HBL_ASSERT(m_pEchoTarget2);
    m_pEchoTarget2->close();
}
