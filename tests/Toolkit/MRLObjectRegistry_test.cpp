#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLObjectRegistryFactory.h"
#include "Toolkit/MRLUnknownSchemaType.h"
#include "Toolkit/MRL_AttachmentContainerI.h"
#include "Toolkit/MRL_CharStreamable.h"
#include "Toolkit/MRL_String.h"
#include "support/Failure.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/I18NString.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <functional>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Does something when it is released, which may fail.
class Probe : public MRL_AttachmentContainerI {
public:
    explicit Probe(std::function<void()> atEnd)
        : m_atEnd(std::move(atEnd)) {}
    ~Probe() noexcept(false) override { m_atEnd(); }
    void write(const char*, std::size_t) override {}
    const char* c_str() override { return nullptr; }
    MRL_Streamable* getStreamable() override { return nullptr; }

private:
    std::function<void()> m_atEnd;
};

class Registry : public testing::Test {
protected:
    Probe* expectRelease(int id) {
        auto* probe = new Probe([this, id] { released.push_back(id); });
        registry->registerPointer(probe);
        return probe;
    }

    HBLSmartPointer<MRLObjectRegistryI> registry{MRLObjectRegistryFactory::getInstance().create()};
    std::vector<int> released;
};

TEST_F(Registry, ReleasesInTheOrderOfRegistrationAndOnce) {
    for (const int id : {1, 2, 3})
        expectRelease(id);
    registry->clean();
    EXPECT_THAT(released, ElementsAre(1, 2, 3));
    registry->clean();
    EXPECT_EQ(released.size(), 3u);
    expectRelease(4);
    registry = nullptr;
    EXPECT_THAT(released, ElementsAre(1, 2, 3, 4));
}

TEST_F(Registry, TakesEveryKindAndSkipsNull) {
    // What is released wrongly or not at all shows under the address sanitizer.
    registry->registerPointer(new char('c'), MRLObjectRegistryI::eRSDeleteScalar);
    registry->registerPointer(new int(1), MRLObjectRegistryI::eRSDeleteScalar1);
    registry->registerPointer(new float(1), MRLObjectRegistryI::eRSDeleteScalar2);
    registry->registerPointer(new char[7], MRLObjectRegistryI::eRSDeleteArray);
    registry->registerPointer(static_cast<char*>(std::malloc(7)), MRLObjectRegistryI::eRSFree);
    registry->registerPointer(new MRL_CharStreamable);
    registry->registerPointer(new MRLBase64Binary("abc", 3));
    registry->registerPointer(new MRL_String);
    registry->registerPointer(new std::string(100, 'x'));
    registry->registerPointer(new PLQMemoryOutputStream(10, 10));
    registry->registerPointer(new I18NString("text"));
    registry->registerPointer(
        static_cast<MRLSchemaTypeI*>(new MRLUnknownSchemaType("long enough to be on the heap")));
    registry->registerPointer(static_cast<std::string*>(nullptr));
    registry->registerPointer(static_cast<char*>(nullptr), MRLObjectRegistryI::eRSDeleteArray);
    registry->clean();
}

TEST_F(Registry, RefusesADeleteModeThatDoesNotExist) {
    int number = 0;
    expectAssert(
        [&] { registry->registerPointer(&number, static_cast<MRLObjectRegistryI::RSDeleteMode>(5)); },
        "HBL_ASSERT(FALSE);");
    registry->clean(); // and has not kept it
}

TEST_F(Registry, KeepsWhatFollowsAFailedRelease) {
    expectRelease(1);
    registry->registerPointer(new Probe([] { throw std::runtime_error("cannot close"); }));
    expectRelease(3);
    EXPECT_THROW(registry->clean(), std::runtime_error);
    EXPECT_THAT(released, ElementsAre(1));
    registry->clean();
    EXPECT_THAT(released, ElementsAre(1, 3));
}

TEST_F(Registry, SurvivesAFailedReleaseAtItsOwnEnd) {
    registry->registerPointer(new Probe([] { throw std::runtime_error("cannot close"); }));
    const std::unique_ptr<Probe> left(expectRelease(2));
    EXPECT_NO_THROW(registry = nullptr);
    EXPECT_THAT(released, IsEmpty()) << "what a failed release leaves is not released";
}

TEST_F(Registry, DropsWhatADestructorRegisters) {
    MRL_String late;
    registry->registerPointer(new Probe([&] { registry->registerPointer(&late); }));
    registry->clean();
    registry->clean(); // would release what lies on the stack
}

TEST_F(Registry, FailsCleanlyWhenADestructorCleansIt) {
    registry->registerPointer(new Probe([&] { registry->clean(); }));
    expectRelease(2);
    EXPECT_THROW(registry->clean(), std::out_of_range);
    EXPECT_THAT(released, ElementsAre(2));
}

TEST(RegistryFactory, DestroysWhateverTheCount) {
    MRLObjectRegistryI* const registry = MRLObjectRegistryFactory::getInstance().create();
    EXPECT_EQ(registry->getReferenceCount(), 0);
    registry->addReference();
    registry->addReference();
    bool released = false;
    registry->registerPointer(new Probe([&] { released = true; }));
    MRLObjectRegistryFactory::getInstance().destroy(registry);
    EXPECT_TRUE(released);
    MRLObjectRegistryFactory::getInstance().destroy(nullptr);
}

} // namespace
