#include "HBLCore/HBLArena.h"
#include "HBLCore/HBLByteBuffer.h"
#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLMessage.h"
#include "HBLCore/HBLMessageString.h"
#include "HBLCore/I18NConverter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <new>
#include <utility>

namespace {

/// Allocations of this thread that still succeed; below 0 there is no limit.
thread_local int t_allocationsLeft = -1;

void* allocate(std::size_t size, std::size_t alignment = alignof(std::max_align_t)) {
    if (t_allocationsLeft == 0)
        throw std::bad_alloc();
    if (t_allocationsLeft > 0)
        --t_allocationsLeft;
    const std::size_t rounded = (std::max<std::size_t>(size, 1) + alignment - 1) / alignment * alignment;
    if (void* block = std::aligned_alloc(alignment, rounded))
        return block;
    throw std::bad_alloc();
}

} // namespace

// Not inlined: the compiler would see new paired with free.
[[gnu::noinline]] void* operator new(std::size_t size) {
    return allocate(size);
}
[[gnu::noinline]] void* operator new(std::size_t size, std::align_val_t alignment) {
    return allocate(size, static_cast<std::size_t>(alignment));
}
[[gnu::noinline]] void operator delete(void* block, std::align_val_t) noexcept {
    std::free(block);
}
[[gnu::noinline]] void* operator new[](std::size_t size) {
    return allocate(size);
}
[[gnu::noinline]] void operator delete(void* block) noexcept {
    std::free(block);
}
[[gnu::noinline]] void operator delete[](void* block) noexcept {
    std::free(block);
}
[[gnu::noinline]] void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}
[[gnu::noinline]] void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

namespace {

const char* const kLong = "a text that is too long to be kept inside of a string object";

class Failure : public HBLException {
public:
    Failure()
        : HBLException(eHBLSeverityError, 1) {}
    HBLThrowable* clone() const override { return hblNew<Failure>(HBL_HERE, *this); }
    void hurl(const HBLFileLocation& where, const char* function, const char* macro) override {
        addBackTrace(where, function, macro);
        hblThrowCopy(*this, where, function);
    }
    const char* getThrowableName() const override { return "Failure"; }
};

void failAssertion() {
    try {
        hblRethrowing(kLong, [] { hblAssertFailed(kLong, HBL_HERE, kLong); });
    } catch (HBLAssertError& e) {
        HBLAssertError copy = e;
        copy.addBackTrace(HBL_HERE, kLong, kLong);
    }
}

void throwMessages() {
    hblRethrowing(nullptr, [] {
        try {
            Failure failure;
            HBLMessage message("Test", 1);
            message << kLong << 7;
            failure.addMessage(message);
            failure.addMessage(HBLMessageString(kLong));
            HBL_THROW(failure, kLong);
        } catch (Failure& e) {
            delete e.clone();
        }
    });
}

void growBuffer() {
    HBLByteBuffer buffer;
    buffer << kLong << kLong;
    HBLByteBuffer copy(buffer);
    copy.setLength(5000);
}

void fillChunk() {
    const HBLArena::Scope together;
    std::array<HBLByteBuffer, 10> texts;
    for (HBLByteBuffer& text : texts)
        text.reserve(4000);
}

void convert() {
    hblRethrowing(nullptr, [] {
        const I18NString text(kLong);
        text.c_str();
        delete[] I18NConverter("ISO-8859-1").fromUnicodeNew(text.view());
    });
}

TEST(WithoutMemory, EveryStepEndsInAThrowableWhicheverAllocationFails) {
    const std::pair<const char*, void (*)()> steps[] = {{"a failed assertion", failAssertion},
                                                        {"an exception with messages", throwMessages},
                                                        {"a growing buffer", growBuffer},
                                                        {"texts that fill a chunk", fillChunk},
                                                        {"a conversion", convert}};
    for (const auto& [name, step] : steps) {
        SCOPED_TRACE(name);
        step(); // what is made once, on first use
        bool failed = true;
        for (int allowed = 0; failed && allowed < 1000; ++allowed) {
            failed = false;
            std::string unexpected;
            try {
                t_allocationsLeft = allowed;
                step();
                t_allocationsLeft = -1;
            } catch (HBLOutOfMemoryError& e) {
                t_allocationsLeft = -1;
                failed = true;
                EXPECT_STREQ(e.getMessage(), "out of memory");
            } catch (std::exception& e) {
                t_allocationsLeft = -1;
                unexpected = e.what();
            }
            EXPECT_EQ(unexpected, "") << "with " << allowed << " allocations";
        }
        EXPECT_FALSE(failed) << "never enough memory";
    }
}

} // namespace
