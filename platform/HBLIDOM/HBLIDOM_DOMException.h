#pragma once

#include "HBLCore/HBLFailure.h"

#include <string>

/// An operation on a DOM that cannot be done. The message names operation, node and cause:
/// "Element::setAttribute on the element \"bus:zor\": INVALID_CHARACTER_ERR (5), the name ...".
class MRL_EXPORT HBLIDOM_DOMException : public HBLException {
public:
    /// What getErrorCode() is: the codes of the DOM standard.
    enum Code : int {
        INDEX_SIZE_ERR = 1,
        DOMSTRING_SIZE_ERR = 2,
        HIERARCHY_REQUEST_ERR = 3,
        WRONG_DOCUMENT_ERR = 4,
        INVALID_CHARACTER_ERR = 5,
        NO_DATA_ALLOWED_ERR = 6,
        NO_MODIFICATION_ALLOWED_ERR = 7,
        NOT_FOUND_ERR = 8,
        NOT_SUPPORTED_ERR = 9,
        INUSE_ATTRIBUTE_ERR = 10,
        INVALID_STATE_ERR = 11,
        SYNTAX_ERR = 12,
        INVALID_MODIFICATION_ERR = 13,
        NAMESPACE_ERR = 14,
        INVALID_ACCESS_ERR = 15, ///< also for any question to a null handle
    };

    /// @param operation "Element::setAttribute".
    /// @param place the node, "the element \"a\"".
    /// @param cause what is wrong, in words; may be empty.
    HBLIDOM_DOMException(int code, const std::string& operation, const std::string& place,
                         const std::string& cause);

    HBLIDOM_DOMException* clone() const override;
    [[noreturn]] void hurl(const HBLFileLocation& where, const char* function, const char* macro) override;
    using HBLException::getMessage;
    const char* getThrowableName() const override;

protected:
    const char* getErrorCodePrefix() const override;
};
