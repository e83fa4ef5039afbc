#include "serialization/MRLSOAPFaultSerializerFactory.h"

#include "serialization/MRLSOAPFaultSerializer.h"

#include "HBLCore/HBLFailure.h"

MRLSOAPFaultSerializerFactory& MRLSOAPFaultSerializerFactory::getInstance() {
    static MRLSOAPFaultSerializerFactory s_instance;
    return s_instance;
}

MRLSOAPFaultSerializerFactory::~MRLSOAPFaultSerializerFactory() = default;

MRLSOAPFaultSerializerI* MRLSOAPFaultSerializerFactory::create() {
    return hblNew<MRLSOAPFaultSerializer>(HBL_HERE);
}

void MRLSOAPFaultSerializerFactory::destroy(MRLSOAPFaultSerializerI* instance) {
    delete instance;
}
