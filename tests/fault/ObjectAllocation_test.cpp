// Making and copying objects with each allocation failing once, that of the full registry's list included.
#include "FailingAllocations.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLZOR.h"

#include "HBLCore/HBLOutOfMemoryError.h"
#include "HBLCore/HBLSmartPointer.h"

#include <gtest/gtest.h>

using mrl::test::FailingAllocations;

namespace {

TEST(ObjectAllocation, EndsInOutOfMemoryAndLeavesNothing) {
    MRLZOR zor;
    MRLBase64Binary bytes("bytes", 0);
    zor.setAction("logon");
    zor.setSecurityBlob(&bytes);
    zor.getRoles().push_back("role");
    const struct {
        const char* what;
        void (*make)(MRLObjectRegistryI&, const MRLZOR&);
    } rows[] = {
        {"a header", [](auto& registry, auto&) { MRLContentQuery_Request().getTavelHeader(&registry); }},
        {"a member", [](auto& registry, auto&) { MRLTavelHeader().getZOR(&registry); }},
        {"bytes", [](auto& registry, auto&) { MRLZOR().getSecurityBlob(&registry); }},
        {"a copy", [](auto& registry,
                      auto& whole) { MRLSchemaTypesFactory::getInstance().createCopy(whole, registry); }},
    };
    for (const auto& [what, make] : rows) {
        bool isReached = true;
        for (long n = 0; isReached; ++n) { // the first fills what is kept for the process
            const long before = FailingAllocations::alive();
            {
                const HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistry::create());
                for (int room = 0; room < 100; ++room)
                    registry->registerPointer(static_cast<MRLSchemaTypeI*>(nullptr));
                try {
                    const FailingAllocations failing(n);
                    try {
                        make(*registry, zor);
                    } catch (...) {
                        isReached = FailingAllocations::happened();
                        throw;
                    }
                    isReached = FailingAllocations::happened();
                    EXPECT_TRUE(n == 0 || !isReached) << what << ": a failure is swallowed at step " << n;
                } catch (const HBLOutOfMemoryError&) {
                } catch (const std::exception& e) {
                    ADD_FAILURE() << what << ", step " << n << ": a standard exception: " << e.what();
                }
            }
            EXPECT_TRUE(n == 0 || before == FailingAllocations::alive()) << what << ", step " << n;
        }
    }
}

} // namespace
