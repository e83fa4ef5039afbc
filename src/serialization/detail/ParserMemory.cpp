#include "serialization/detail/ParserMemory.h"

#include <xercesc/util/OutOfMemoryException.hpp>
#include <xercesc/util/PlatformUtils.hpp>

#include <new>
#include <utility>

namespace mrl::detail {

ParserMemory::~ParserMemory() {
    for (Link* link = m_all.behind; link != &m_all;) {
        ::operator delete(std::exchange(link, link->behind));
    }
}

xercesc::MemoryManager* ParserMemory::getExceptionMemoryManager() {
    return xercesc::XMLPlatformUtils::fgMemoryManager;
}

void* ParserMemory::allocate(XMLSize_t size) {
    void* const block = ::operator new(sizeof(Link) + size, std::nothrow);
    if (block == nullptr) {
        throw xercesc::OutOfMemoryException();
    }
    Link* const link = new (block) Link{&m_all, m_all.behind};
    link->behind->before = link;
    m_all.behind = link;
    return link + 1;
}

void ParserMemory::deallocate(void* block) {
    if (block == nullptr) {
        return;
    }
    Link* const link = static_cast<Link*>(block) - 1;
    link->before->behind = link->behind;
    link->behind->before = link->before;
    ::operator delete(link);
}

} // namespace mrl::detail
