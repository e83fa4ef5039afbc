#include "serialization/MRLSAXObjectSerializerFactory.h"

#include "serialization/MRLSAXObjectSerializer.h"

#include "HBLCore/HBLFailure.h"

MRLSAXObjectSerializerFactory& MRLSAXObjectSerializerFactory::getInstance() {
    static MRLSAXObjectSerializerFactory s_instance;
    return s_instance;
}

MRLSAXObjectSerializerFactory::~MRLSAXObjectSerializerFactory() = default;

MRLSAXObjectSerializerI* MRLSAXObjectSerializerFactory::create() {
    return hblNew<MRLSAXObjectSerializer>(HBL_HERE);
}

void MRLSAXObjectSerializerFactory::destroy(MRLSAXObjectSerializerI* instance) {
    delete instance;
}
