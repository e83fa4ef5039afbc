#include "session/Query.h"

#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBooleanProp.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLObjectRegistryI.h"
#include "Toolkit/MRLOrderEnum.h"
#include "Toolkit/MRLPropEnum.h"
#include "Toolkit/MRLPropEnumArray.h"
#include "Toolkit/MRLReport.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLSort.h"
#include "Toolkit/MRLSortArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLTokenProp.h"
#include "serialization/MRLSOAPMessageISerializerFactory.h"
#include "serialization/MRLSOAPMessageISerializerI.h"

#include "PLQStreams/PLQMemoryOutputStream.h"

namespace mrl::bench {

namespace {

Binding bind() {
    return Binding(MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
        MRLMessageI::eMRLContentQuery_Request));
}

} // namespace

Binding smallQuery(const char* searchPath) {
    Binding call = bind();
    auto& request = static_cast<MRLContentQuery_Request&>(call->getInputMessage());
    MRLObjectRegistryI& registry = request.getObjectRegistry();
    request.getSearchPath(&registry)->setValue(searchPath);
    for (const char* property : {"defaultName", "searchPath", "defaultDescription", "hidden"}) {
        auto* const name = new MRLPropEnum;
        registry.registerPointer(name);
        name->setValue(property);
        request.getProperties(&registry)->push_back(name);
    }
    auto* const sort = new MRLSort;
    registry.registerPointer(sort);
    sort->getPropName(&registry)->setValue("defaultName");
    request.getSortBy(&registry)->push_back(sort);
    return call;
}

std::string query(const MRLSOAPSession& session, const char* searchPath) {
    const Binding call = smallQuery(searchPath);
    session.submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
    const auto& reply = static_cast<const MRLContentQuery_Reply&>(call->getOutputMessage());
    return reply.getResult()->at(0)->getDefaultName()->getValue();
}

Binding replyOf(long count) {
    Binding call = bind();
    auto& reply = static_cast<MRLContentQuery_Reply&>(call->getOutputMessage());
    MRLObjectRegistryI& registry = reply.getObjectRegistry();
    MRLBaseClassArray* const result = reply.getResult(&registry);
    for (long i = 0; i < count; ++i) {
        auto* const report = new MRLReport;
        registry.registerPointer(report);
        report->getDefaultName(&registry)->setValue(s_reportName);
        report->getSearchPath(&registry)->setValue(s_searchPath);
        report->getDefaultDescription(&registry)->setValue("Revenue by region and product line");
        report->getHidden(&registry)->setValue(0);
        result->push_back(report);
    }
    return call;
}

std::string envelopeOf(long count, std::size_t blanks) {
    const Binding call = replyOf(count);
    PLQMemoryOutputStream out(1 << 16, 1 << 16);
    auto& factory = MRLSOAPMessageISerializerFactory::getInstance();
    MRLSOAPMessageISerializerI* const serializer = factory.create();
    serializer->serialize(*call, call->getOutputMessage(), out, nullptr, 1, 0);
    factory.destroy(serializer);
    std::string envelope(out.bytes(), static_cast<std::size_t>(out.length()));
    envelope.insert(envelope.find("<item"), blanks, ' ');
    return envelope;
}

std::string envelopeWithAttachment(const std::string& contentId) {
    return R"(<e:Envelope xmlns:e="http://schemas.xmlsoap.org/soap/envelope/" )"
           R"(xmlns:b="http://developer.vantor.example/schemas/tavel/3/" )"
           R"(xmlns:i="http://www.w3.org/2001/XMLSchema-instance"><e:Body><r><q>)"
           R"(<item i:type="b:documentContent"><data><value href="cid:)" +
           contentId + R"("/></data></item></q></r></e:Body></e:Envelope>)";
}

} // namespace mrl::bench
