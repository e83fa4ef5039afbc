#include "serialization/MRLDOMObjectSerializerFactory.h"

#include "serialization/MRLDOMObjectSerializer.h"

#include "HBLCore/HBLFailure.h"

MRLDOMObjectSerializerFactory& MRLDOMObjectSerializerFactory::getInstance() {
    static MRLDOMObjectSerializerFactory s_instance;
    return s_instance;
}

MRLDOMObjectSerializerFactory::~MRLDOMObjectSerializerFactory() = default;

MRLDOMObjectSerializerI* MRLDOMObjectSerializerFactory::create() {
    return hblNew<MRLDOMObjectSerializer>(HBL_HERE);
}

void MRLDOMObjectSerializerFactory::destroy(MRLDOMObjectSerializerI* instance) {
    delete instance;
}
