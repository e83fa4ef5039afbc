#pragma once

#include "Toolkit/MRLContentGetActiveContentManager_Reply.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLPortTypeBinding.h"

#include "HBLCore/HBLSmartPointer.h"

#include <string>

namespace mrl::test {

/// An envelope as a service may write it.
inline std::string envelope(const std::string& body) {
    return R"(<?xml version="1.0" encoding="UTF-8"?>)"
           R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" )"
           R"(xmlns:b="http://developer.vantor.example/schemas/tavel/3/" )"
           R"(xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" xmlns:xs="http://www.w3.org/2001/XMLSchema">)"
           "<e:Body>" +
           body + "</e:Body></e:Envelope>";
}

/// The reply of an operation that gives a text.
inline std::string answer(const std::string& result) {
    return envelope("<r><result xsi:type='xs:string'>" + result + "</result></r>");
}

inline std::string fault(const std::string& code, const std::string& messages = "") {
    return envelope(
        "<e:Fault><faultcode>Client</faultcode><faultstring>no</faultstring><detail><exception><errorCode>" +
        code + "</errorCode>" + messages + "</exception></detail></e:Fault>");
}

/// A call of an operation whose reply is one text.
struct TextCall {
    std::string result() const {
        const char* const text =
            static_cast<const MRLContentGetActiveContentManager_Reply&>(binding->getOutputMessage())
                .getResult();
        return text == nullptr ? "" : text;
    }
    HBLSmartPointer<MRLPortTypeBinding> binding{
        MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
            MRLMessageI::eMRLContentGetActiveContentManager_Request)};
};

} // namespace mrl::test
