#include "Common/MRLException.h"

MRLException::MRLException(int errorCode)
    : HBLException(eHBLSeverityError, errorCode) {}
MRLException::MRLException(HBLSeverity severity, int errorCode)
    : HBLException(severity, errorCode) {}
MRLException::MRLException(const char* text)
    : HBLException(eHBLSeverityError, text) {}
MRLException::MRLException(HBLSeverity severity, const char* text)
    : HBLException(severity, text) {}

MRLException::MRLException(const HBLException& other, const HBLMessageBase* message)
    : HBLException(other.getSeverity(), other.getErrorCode()) {
    transferBackTrace(other);
    transferMessages(other);
    if (message)
        addMessage(*message);
}

MRLException& MRLException::operator=(const MRLException& other) {
    if (this != &other)
        HBLException::operator=(other);
    return *this;
}

MRLException::~MRLException() = default;

MRLException& MRLException::operator<<(const HBLMessageBase& message) {
    addMessage(message);
    return *this;
}

MRLException* MRLException::clone() const {
    return hblNew<MRLException>(HBL_HERE, *this);
}

void MRLException::hurl(const HBLFileLocation& where, const char* function, const char* macro) {
    addBackTrace(where, function, macro);
    hblThrowCopy(*this, where, function);
}

const char* MRLException::getThrowableName() const {
    return "MRLException";
}

const char* MRLException::getErrorCodePrefix() const {
    return "HBL-MRL";
}
