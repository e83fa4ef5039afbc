#include "PLQStreams/PLQStreamError.h"

PLQStreamError::PLQStreamError(ePLQStreamError kind, const std::string& text)
    : HBLErrorOf(kind, text.c_str(), "stream failure") {}

const char* PLQStreamError::getErrorCodePrefix() const {
    return "HBL-PLQ";
}
