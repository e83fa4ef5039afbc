#include "Session/detail/FaultCode.h"

#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailArray.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLUndocumentedFaultDetail.h"
#include "Toolkit/MRLUndocumentedFaultDetailArray.h"
#include "Toolkit/MRLZOR.h"
#include "Toolkit/MRLZORException.h"
#include "serialization/MRLSOAPFaultException.h"

#include <cstring>

namespace mrl::detail {

namespace {

bool isUnrecoverable(const MRLZORException* exception) {
    const char* const code = exception == nullptr ? nullptr : exception->getErrorCodeString();
    return code != nullptr && std::strcmp(code, "zorAuthUnrecoverable") == 0;
}

} // namespace

const char* firstErrorCode(const MRLSOAPFault& fault) {
    if (const MRLFaultDetailArray* detail = fault.getDetail()) {
        return detail->empty() ? nullptr : detail->at(0)->getErrorCode();
    }
    if (const MRLUndocumentedFaultDetailArray* detail = fault.getUndocumentedDetail()) {
        return detail->empty() ? nullptr : detail->at(0)->getErrorCodeString();
    }
    return nullptr;
}

bool concernsTheCaller(const MRLSOAPFaultException& exception) {
    const MRLZORException* const inFault = exception.getSOAPFault().getZORException();
    const MRLTavelHeader* const header = exception.getTavelHeader();
    const MRLZOR* const block = header == nullptr ? nullptr : header->getZOR();
    if (inFault == nullptr && block == nullptr) {
        return true;
    }
    return isUnrecoverable(inFault) || (block != nullptr && isUnrecoverable(block->getException()));
}

} // namespace mrl::detail
