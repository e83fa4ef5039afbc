#pragma once

#include "TavelTK/detail/ReplyBody.h"
#include "TavelTK/detail/ReplyHead.h"

#include <string>

namespace mrl::detail {

/// What a reply says about its content, once it is known to be SOAP.
struct ReplyType {
    bool isMultipart = false;
    std::string boundary; ///< of a multipart reply
    std::string start;    ///< content id of its envelope with angle brackets; empty: the first part

    /// Checks status, content type, charset and content encoding of a reply.
    /// @throws TavelTKException notSoapReply with status, type and the first words of the body; wrongCharset.
    static ReplyType check(const ReplyHead& head, ReplyBody& body, Wire& wire);

    /// Checks a part's or reply's type to be XML in UTF-8.
    /// @return false when it is no XML at all
    static bool checkXml(const std::string& contentType, Wire& wire);
};

} // namespace mrl::detail
