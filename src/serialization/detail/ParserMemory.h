#pragma once

#include <xercesc/framework/MemoryManager.hpp>

#include <cstddef>

namespace mrl::detail {

/// Where a parser takes its memory from. When memory runs out, the XML library lets go of what it was about
/// to set up; whatever it has not given back by then goes with this object. One thread at a time.
class ParserMemory final : public xercesc::MemoryManager {
public:
    ParserMemory() = default;
    ~ParserMemory() override;

    /// For exceptions, which live longer than the parser.
    xercesc::MemoryManager* getExceptionMemoryManager() override;
    /// @throws xercesc::OutOfMemoryException, which is what the library can take.
    void* allocate(XMLSize_t size) override;
    void deallocate(void* block) override;

private:
    /// In front of every block.
    struct alignas(std::max_align_t) Link {
        Link* before;
        Link* behind;
    };

    Link m_all{&m_all, &m_all}; // a ring
};

} // namespace mrl::detail
