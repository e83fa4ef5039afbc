#include "Toolkit/MRLObjectRegistryFactory.h"

#include "Toolkit/MRLObjectRegistry.h"

#include "HBLCore/HBLFailure.h"

MRLObjectRegistryFactory& MRLObjectRegistryFactory::getInstance() {
    // Never destroyed: messages may still be made while the process ends.
    static auto* const instance =
        hblRethrowing("MRLObjectRegistryFactory::getInstance", [] { return new MRLObjectRegistryFactory; });
    return *instance;
}

MRLObjectRegistryI* MRLObjectRegistryFactory::create() {
    return MRLObjectRegistry::create();
}

void MRLObjectRegistryFactory::destroy(MRLObjectRegistryI* registry) {
    delete registry;
}

MRLObjectRegistryFactory::~MRLObjectRegistryFactory() = default;
