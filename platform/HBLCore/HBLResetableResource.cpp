#include "HBLCore/HBLResetableResource.h"

#include "HBLCore/HBLResetableResourceRegistry.h"

HBLResetableResource::~HBLResetableResource() {
    if (m_registered)
        HBLResetableResourceRegistry::getInstance().unregisterResource(*this);
}
