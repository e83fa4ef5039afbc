#include "Toolkit/MRLMessageI.h"

#include "Toolkit/MRLObjectRegistryFactory.h"
#include "Toolkit/MRLTavelHeader.h"

#include "HBLCore/HBLFailure.h"

#include <memory>

MRLMessageI::MRLMessageI() = default;

MRLMessageI::~MRLMessageI() {
    // The registry goes with its holder, behind this.
    m_tavelHeader = nullptr;
}

MRLObjectRegistryI& MRLMessageI::getObjectRegistry() {
    if (m_objectRegistry.get() == nullptr)
        setObjectRegistry(hblRethrowing("MRLMessageI::getObjectRegistry",
                                        [] { return MRLObjectRegistryFactory::getInstance().create(); }));
    return *m_objectRegistry;
}

void MRLMessageI::setObjectRegistry(MRLObjectRegistryI* registry) {
    // The new reference comes first: the same registry may be set again.
    const HBLSmartPointer<MRLObjectRegistryI> fresh(registry);
    m_objectRegistry = fresh;
}

MRLTavelHeader* MRLMessageI::getTavelHeader(MRLObjectRegistryI* registry) {
    if (m_tavelHeader == nullptr && registry != nullptr)
        m_tavelHeader = hblRethrowing(
            "MRLMessageI::getTavelHeader",
            [&] {
                auto header = std::make_unique<MRLTavelHeader>();
                registry->registerPointer(header.get());
                return header.release();
            },
            HBLFileLocation("../Toolkit/MRLMessageI", __LINE__));
    return m_tavelHeader;
}

void MRLMessageI::setTavelHeader(MRLTavelHeader* header) {
    m_tavelHeader = header;
}
