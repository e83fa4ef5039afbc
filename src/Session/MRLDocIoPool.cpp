// The memory buffers that documents share.
#include "Session/MRLDocIo.h"
#include "Session/MRLProperty.h"

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLThreadGuard.h"

#include <utility>

namespace {

constexpr unsigned int s_defaultBufferSize = 300000;
constexpr unsigned int s_defaultPoolLimit = 30;
constexpr unsigned int s_largestPoolLimit = 65535;

} // namespace

HBLThreadCriticalSection MRLDocIo::s_lock;
int MRLDocIo::m_initCount = 0;
unsigned int MRLDocIo::m_bufferSize = 0;
unsigned int MRLDocIo::s_poolLimit = 0;

// Never destroyed: documents may end after the statics of the process.
std::vector<MRLDocIo::Buffer>& MRLDocIo::pool() {
    static auto& buffers = *new std::vector<Buffer>;
    return buffers;
}

void MRLDocIo::initialize() {
    const MRLProperty& properties = MRLProperty::getInstance(); // has a lock of its own
    const HBLThreadGuard guard(s_lock);
    if (m_initCount == 0) {
        unsigned int size = 0;
        unsigned int limit = 0;
        properties.getValue("outputBufferSize", size);
        properties.getValue("outputBufferPoolSize", limit);
        limit = limit != 0 && limit <= s_largestPoolLimit ? limit : s_defaultPoolLimit;
        pool().reserve(limit); // giving a buffer back then never allocates
        s_poolLimit = limit;
        m_bufferSize = size != 0 ? size : s_defaultBufferSize;
    }
    ++m_initCount;
}

void MRLDocIo::terminate() {
    const HBLThreadGuard guard(s_lock);
    if (m_initCount > 0 && --m_initCount == 0) {
        m_bufferSize = 0;
        s_poolLimit = 0;
        pool().clear();
    }
}

MRLDocIo::Buffer MRLDocIo::getBuffer(std::size_t& capacity) {
    {
        const HBLThreadGuard guard(s_lock);
        HBL_ASSERT(m_initCount);
        capacity = m_bufferSize;
        if (!pool().empty()) {
            Buffer buffer = std::move(pool().back());
            pool().pop_back();
            return buffer;
        }
    }
    return Buffer(hblNewChars(HBL_HERE, capacity + 1));
}

void MRLDocIo::releaseBuffer(Buffer buffer, std::size_t capacity) {
    const HBLThreadGuard guard(s_lock);
    // One from before the last terminate() may have another size, and is not for the pool.
    if (capacity == m_bufferSize && pool().size() < s_poolLimit) {
        pool().push_back(std::move(buffer));
    }
}
