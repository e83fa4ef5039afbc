#include "serialization/MRLObjectSerializerFactory.h"

#include "serialization/MRLSOAPSerializer.h"

#include "HBLCore/HBLFailure.h"

MRLObjectSerializerFactory& MRLObjectSerializerFactory::getInstance() {
    static MRLObjectSerializerFactory s_instance;
    return s_instance;
}

MRLObjectSerializerFactory::~MRLObjectSerializerFactory() = default;

MRLObjectSerializerI* MRLObjectSerializerFactory::create() {
    return hblNew<MRLSOAPSerializer>(HBL_HERE);
}

void MRLObjectSerializerFactory::destroy(MRLObjectSerializerI* instance) {
    delete instance;
}
