#include "serialization/MRLDOMObjectDeserializerFactory.h"

#include "serialization/MRLDOMObjectDeserializer.h"

#include "HBLCore/HBLFailure.h"

MRLDOMObjectDeserializerFactory& MRLDOMObjectDeserializerFactory::getInstance() {
    static MRLDOMObjectDeserializerFactory s_instance;
    return s_instance;
}

MRLDOMObjectDeserializerFactory::~MRLDOMObjectDeserializerFactory() = default;

MRLDOMObjectDeserializerI* MRLDOMObjectDeserializerFactory::create() {
    return hblNew<MRLDOMObjectDeserializer>(HBL_HERE);
}

void MRLDOMObjectDeserializerFactory::destroy(MRLDOMObjectDeserializerI* instance) {
    delete instance;
}
