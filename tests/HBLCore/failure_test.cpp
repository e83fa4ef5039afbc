#include "support/Failure.h"

#include <memory>
#include <new>
#include <stdexcept>

namespace {

/// Runs `step`, which must throw T, and returns a copy of what it threw.
template <class T, class Step>
T thrownBy(Step&& step) {
    try {
        step();
    } catch (T& e) {
        return e;
    }
    throw std::logic_error("the expected exception was not thrown");
}

TEST(Assertion, HasTheCallAsTheSourceSpellsItForItsText) {
    const int* pointer = nullptr;
    expectAssert([&] { HBL_ASSERT(pointer != NULL); }, "HBL_ASSERT(pointer != NULL);");
    expectAssert([&] { HBL_ASSERT_NAMED(FALSE, "No \"quotes\" lost."); },
                 "HBL_ASSERT_NAMED(FALSE, \"No \\\"quotes\\\" lost.\");");
    EXPECT_NO_THROW(HBL_ASSERT(!pointer));
}

TEST(Assertion, TellsWhereItFailed) {
    const int line = __LINE__ + 1;
    const auto e = thrownBy<HBLAssertError>([] { HBL_ASSERT(1 == 2); });
    ASSERT_EQ(e.getBackTrace().size(), 1u);
    EXPECT_TRUE(e.getBackTrace()[0].ends_with("failure_test.cpp:" + std::to_string(line) +
                                              ": operator() [HBL_THROW]"))
        << e.getBackTrace()[0];
}

TEST(BackTrace, GrowsByOneEntryAtEachBoundaryInOrder) {
    const auto thrown = thrownBy<HBLIllegalStateError>([] {
        hblRethrowing("third", [] {
            try {
                hblRethrowing("first",
                              [] {
                                  HBLIllegalStateError(7, "shut").hurl({"a.cpp", 1}, "origin", "M");
                              },
                              {"b.cpp", 2});
            } catch (HBLThrowable& e) {
                HBL_RETHROW("second");
            }
        });
    });
    ASSERT_EQ(thrown.getBackTrace().size(), 4u);
    EXPECT_EQ(thrown.getBackTrace()[0], "a.cpp:1: origin [M]");
    EXPECT_EQ(thrown.getBackTrace()[1], "b.cpp:2: first [HBL_RETHROW]");
    EXPECT_TRUE(thrown.getBackTrace()[2].ends_with(": second [HBL_RETHROW]"));
    EXPECT_TRUE(thrown.getBackTrace()[3].ends_with(": third [HBL_RETHROW]"));
}

TEST(BackTrace, GrowsInTheHurledObjectToo) {
    HBLIllegalStateError error(0, "shut");
    const auto first = thrownBy<HBLIllegalStateError>([&] { error.hurl({"a.cpp", 1}, nullptr, "M"); });
    const auto second = thrownBy<HBLIllegalStateError>([&] { error.hurl({"a.cpp", 2}, nullptr, "M"); });
    EXPECT_EQ(first.getBackTrace(), std::vector<std::string>{"a.cpp:1: [M]"});
    EXPECT_EQ(second.getBackTrace(), (std::vector<std::string>{"a.cpp:1: [M]", "a.cpp:2: [M]"}));
    EXPECT_EQ(error.getBackTrace(), second.getBackTrace());
}

TEST(Boundary, LetsNoStandardExceptionThrough) {
    const auto noMemory =
        thrownBy<HBLOutOfMemoryError>([] { hblRethrowing("f", [] { throw std::bad_alloc(); }); });
    EXPECT_STREQ(noMemory.getMessage(), "out of memory");
    const auto standard = thrownBy<HBLStdExceptionError>(
        [] { hblRethrowing("f", [] { throw std::out_of_range("index 7"); }); });
    EXPECT_STREQ(standard.getMessage(), "index 7");
    ASSERT_EQ(standard.getBackTrace().size(), 1u);
    EXPECT_TRUE(standard.getBackTrace()[0].ends_with(": f [HBL_THROW]"));
}

TEST(Boundary, LetsForeignExceptionsAndResultsThroughUnchanged) {
    EXPECT_THROW(hblRethrowing("f", [] { throw 42; }), int);
    int value = 1;
    int& same = hblRethrowing("f", [&]() -> int& { return value; });
    EXPECT_EQ(&same, &value);
}

TEST(Boundary, PassesTheSameObjectOn) {
    const HBLThrowable* inside = nullptr;
    try {
        hblRethrowing("f", [&] {
            try {
                HBL_ASSERT(false);
            } catch (HBLThrowable& e) {
                inside = &e;
                throw;
            }
        });
    } catch (HBLThrowable& e) {
        EXPECT_EQ(&e, inside);
    }
}

struct NullFromNew {
    static void* operator new(std::size_t) noexcept { return nullptr; }
    static void operator delete(void*) {}
};
struct ThrowsWhenMade {
    ThrowsWhenMade() { throw std::runtime_error("no luck"); }
};

TEST(Allocation, NeverGivesNull) {
    EXPECT_THROW(hblNew<NullFromNew>(HBL_HERE), HBLOutOfMemoryError);
    EXPECT_THROW(hblNew<ThrowsWhenMade>(HBL_HERE), HBLStdExceptionError);
    EXPECT_THROW(hblNewChars(HBL_HERE, static_cast<std::size_t>(-1)), HBLOutOfMemoryError);
    const std::unique_ptr<std::string> made(hblNew<std::string>(HBL_HERE, "text"));
    EXPECT_EQ(*made, "text");
}

class BusFailure : public HBLErrorOf<BusFailure> {
public:
    static constexpr const char* s_name = "BusFailure";
    explicit BusFailure(int code)
        : HBLErrorOf(code, "<down & out>", "") {}

protected:
    const char* getErrorCodePrefix() const override { return "HBL-BIT"; }
};

TEST(ErrorCode, ReadsAsComponentAndFourDigits) {
    EXPECT_EQ(BusFailure(6).getErrorCodeString(), "HBL-BIT-0006");
    EXPECT_EQ(BusFailure(12345).getErrorCodeString(), "HBL-BIT-12345");
    EXPECT_EQ(HBLAssertError(0, "x").getErrorCodeString(), "HBL-COR-0000");
}

TEST(Throwable, ReadsAsLinesOrAsXml) {
    BusFailure failure(6);
    failure.addBackTrace({"<a>.cpp", 3}, nullptr, "M");
    EXPECT_STREQ(failure.toString(), "BusFailure HBL-BIT-0006 (error): <down & out>\n  at <a>.cpp:3: [M]");
    std::string xml;
    EXPECT_STREQ(failure.HBLThrowable::toString(eHBLTextXml, nullptr, xml, 1),
                 "<Exception Name=\"BusFailure\"><Error>HBL-BIT-0006</Error><Severity>error</Severity>"
                 "<Messages>&lt;down &amp; out&gt;</Messages>"
                 "<TraceInfo><Trace Text=\"&lt;a&gt;.cpp:3: [M]\"/></TraceInfo></Exception>");
}

TEST(Throwable, IsClonedWithItsTypeCodeTextAndTrace) {
    BusFailure failure(6);
    failure.addBackTrace({"a.cpp", 3}, nullptr, "M");
    const std::unique_ptr<HBLThrowable> copy(static_cast<const HBLThrowable&>(failure).clone());
    EXPECT_NE(dynamic_cast<BusFailure*>(copy.get()), nullptr);
    EXPECT_STREQ(copy->toString(), failure.toString());
    copy->transferBackTrace(*copy);
    EXPECT_EQ(copy->getBackTrace().size(), 2u);
    EXPECT_EQ(failure.getBackTrace().size(), 1u);
}

} // namespace
