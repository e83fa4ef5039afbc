#include "Toolkit/MRLMessageFactory.h"

#include "HBLCore/HBLFailure.h"

MRLMessageFactory& MRLMessageFactory::getInstance() {
    static auto* const instance =
        hblRethrowing("MRLMessageFactory::getInstance", [] { return new MRLMessageFactory; });
    return *instance;
}

MRLMessageFactory::~MRLMessageFactory() = default;

MRLMessageI* MRLMessageFactory::create(const MessageType& msgType) {
    HBL_ASSERT(msgType != MRLMessageI::e_Unknown);
    const Creator creator = creatorOf(msgType);
    return creator == nullptr ? nullptr : hblRethrowing("MRLMessageFactory::create", creator);
}

const MRLMessageFactory::MRLParamDescriptor*
MRLMessageFactory::getParameterTypes(const MessageType& msgType) {
    HBL_ASSERT(msgType != MRLMessageI::e_Unknown);
    return parametersOf(msgType);
}
