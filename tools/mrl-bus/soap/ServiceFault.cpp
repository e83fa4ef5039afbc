#include "soap/ServiceFault.h"

#include "Toolkit/MRLFaultDetail.h"
#include "Toolkit/MRLFaultDetailArray.h"
#include "Toolkit/MRLFaultDetailMessage.h"
#include "Toolkit/MRLFaultDetailMessageArray.h"
#include "Toolkit/MRLSOAPFault.h"
#include "serialization/MRLFromFactory.h"
#include "serialization/MRLSOAPFaultSerializerFactory.h"
#include "serialization/MRLSOAPFaultSerializerI.h"

#include "PLQStreams/PLQMemoryOutputStream.h"

namespace mrl::bus {

namespace {

constexpr std::size_t initialSize = 4096;
constexpr std::size_t growth = 4096;

} // namespace

std::string ServiceFault::toEnvelope() const {
    MRLFaultDetailMessage text;
    text.setMessage(message.c_str());
    MRLFaultDetail item;
    item.setErrorCode(code.c_str());
    item.setSeverity("error");
    item.getMessage().push_back(&text);
    MRLFaultDetailArray detail;
    detail.push_back(&item);
    MRLSOAPFault fault;
    fault.setFaultCode(clientsFault ? "SOAP-ENV:Client" : "SOAP-ENV:Server");
    fault.setFaultString(summary.c_str());
    fault.setDetail(&detail);

    PLQMemoryOutputStream out(initialSize, growth);
    const auto serializer = mrlFromFactory<MRLSOAPFaultSerializerFactory>();
    serializer->serialize(nullptr, fault, out, 1, 0);
    return {out.bytes(), out.length()};
}

} // namespace mrl::bus
