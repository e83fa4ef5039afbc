#include "HBLIDOM/HBLIDOM_DOMException.h"

#include "HBLCore/HBLMessageString.h"

#include <array>
#include <string_view>

namespace {

constexpr std::array<std::string_view, 16> NAMES = {
    "failure",
    "INDEX_SIZE_ERR",
    "DOMSTRING_SIZE_ERR",
    "HIERARCHY_REQUEST_ERR",
    "WRONG_DOCUMENT_ERR",
    "INVALID_CHARACTER_ERR",
    "NO_DATA_ALLOWED_ERR",
    "NO_MODIFICATION_ALLOWED_ERR",
    "NOT_FOUND_ERR",
    "NOT_SUPPORTED_ERR",
    "INUSE_ATTRIBUTE_ERR",
    "INVALID_STATE_ERR",
    "SYNTAX_ERR",
    "INVALID_MODIFICATION_ERR",
    "NAMESPACE_ERR",
    "INVALID_ACCESS_ERR",
};

std::string compose(int code, const std::string& operation, const std::string& place,
                    const std::string& cause) {
    const bool isKnown = code > 0 && static_cast<std::size_t>(code) < NAMES.size();
    std::string text = operation + " on " + place + ": ";
    text.append(NAMES[isKnown ? static_cast<std::size_t>(code) : 0]);
    text += " (" + std::to_string(code) + ")";
    return cause.empty() ? text : text + ", " + cause;
}

} // namespace

HBLIDOM_DOMException::HBLIDOM_DOMException(int code, const std::string& operation, const std::string& place,
                                           const std::string& cause)
    : HBLException(eHBLSeverityError, code) {
    addMessage(HBLMessageString(compose(code, operation, place, cause)));
}

HBLIDOM_DOMException* HBLIDOM_DOMException::clone() const {
    return hblNew<HBLIDOM_DOMException>(HBL_HERE, *this);
}

void HBLIDOM_DOMException::hurl(const HBLFileLocation& where, const char* function, const char* macro) {
    addBackTrace(where, function, macro);
    hblThrowCopy(*this, where, function);
}

const char* HBLIDOM_DOMException::getThrowableName() const {
    return "HBLIDOM_DOMException";
}

const char* HBLIDOM_DOMException::getErrorCodePrefix() const {
    return "HBL-DOM";
}
