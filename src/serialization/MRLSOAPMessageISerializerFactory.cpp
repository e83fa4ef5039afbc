#include "serialization/MRLSOAPMessageISerializerFactory.h"

#include "serialization/MRLSOAPMessageISerializer.h"

#include "HBLCore/HBLFailure.h"

MRLSOAPMessageISerializerFactory& MRLSOAPMessageISerializerFactory::getInstance() {
    static MRLSOAPMessageISerializerFactory s_instance;
    return s_instance;
}

MRLSOAPMessageISerializerFactory::~MRLSOAPMessageISerializerFactory() = default;

MRLSOAPMessageISerializerI* MRLSOAPMessageISerializerFactory::create() {
    return hblNew<MRLSOAPMessageISerializer>(HBL_HERE);
}

void MRLSOAPMessageISerializerFactory::destroy(MRLSOAPMessageISerializerI* instance) {
    delete instance;
}
