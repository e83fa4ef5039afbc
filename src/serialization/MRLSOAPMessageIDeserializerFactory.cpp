#include "serialization/MRLSOAPMessageIDeserializerFactory.h"

#include "serialization/MRLSOAPMessageIDeserializer.h"

#include "HBLCore/HBLFailure.h"

MRLSOAPMessageIDeserializerFactory& MRLSOAPMessageIDeserializerFactory::getInstance() {
    static MRLSOAPMessageIDeserializerFactory s_instance;
    return s_instance;
}

MRLSOAPMessageIDeserializerFactory::~MRLSOAPMessageIDeserializerFactory() = default;

MRLSOAPMessageIDeserializerI* MRLSOAPMessageIDeserializerFactory::create() {
    return hblNew<MRLSOAPMessageIDeserializer>(HBL_HERE);
}

void MRLSOAPMessageIDeserializerFactory::destroy(MRLSOAPMessageIDeserializerI* instance) {
    delete instance;
}
