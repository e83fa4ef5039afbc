// A host's first call: asks the content manager for what is stored, prints the typed reply, and shows what a
// refusal looks like.
#include "Session/MRL.h"
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLBaseClass.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLDateTimeProp.h"
#include "Toolkit/MRLOrderEnum.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLPropEnum.h"
#include "Toolkit/MRLPropEnumArray.h"
#include "Toolkit/MRLReport.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLSort.h"
#include "Toolkit/MRLSortArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLTokenProp.h"
#include "serialization/MRLSOAPFaultException.h"

#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLThrowable.h"

#include <cstdio>
#include <string>

namespace {

const char* orNothing(const char* text) {
    return text == nullptr ? "-" : text;
}

/// Adds one asked-for property to the request. What is made for a message lives in its registry.
void ask(MRLContentQuery_Request& request, const char* property) {
    auto* name = new MRLPropEnum;
    request.getObjectRegistry().registerPointer(name);
    name->setValue(property);
    request.getProperties(&request.getObjectRegistry())->push_back(name);
}

void sortBy(MRLContentQuery_Request& request, const char* property) {
    MRLObjectRegistryI& registry = request.getObjectRegistry();
    auto* sort = new MRLSort;
    registry.registerPointer(sort);
    sort->getPropName(&registry)->setValue(property);
    sort->getOrder(&registry)->setValue("ascending");
    request.getSortBy(&registry)->push_back(sort);
}

void print(const MRLBaseClass& object) {
    const MRLTokenProp* name = object.getDefaultName();
    const MRLStringProp* path = object.getSearchPath();
    std::printf("  %-14s %s\n", object.getGeneratedObjectName().c_str(),
                orNothing(name == nullptr ? nullptr : name->getValue()));
    std::printf("  %-14s at %s\n", "", orNothing(path == nullptr ? nullptr : path->getValue()));
    if (object.isa(MRLReport::s_objectType)) { // reports have more to tell
        const auto& report = static_cast<const MRLReport&>(object);
        const MRLDateTimeProp* changed = report.getModificationTime();
        std::printf("  %-14s changed %s\n", "",
                    orNothing(changed == nullptr ? nullptr : changed->getValue()));
    }
}

void query(const MRLSOAPSession& session, const char* searchPath) {
    // A binding is one call: the operation with its request and the reply to be.
    const HBLSmartPointer<MRLPortTypeBinding> call(
        MRLContentManagerServicePortType::getInstance().createPortTypeBinding(
            MRLMessageI::eMRLContentQuery_Request));
    auto& request = static_cast<MRLContentQuery_Request&>(call->getInputMessage());

    request.getSearchPath(&request.getObjectRegistry())->setValue(searchPath);
    for (const char* property : {"defaultName", "searchPath", "modificationTime"}) {
        ask(request, property);
    }
    sortBy(request, "defaultName");

    std::printf("query %s\n", searchPath);
    session.submit(*call, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);

    const auto& reply = static_cast<const MRLContentQuery_Reply&>(call->getOutputMessage());
    const MRLBaseClassArray* result = reply.getResult();
    std::printf("  %zu objects\n", result == nullptr ? 0 : result->size());
    for (std::size_t i = 0; result != nullptr && i < result->size(); ++i) {
        print(*result->at(i));
    }
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: first_call URL    (what mrl-bus prints when it listens)\n");
        return 2;
    }
    try {
        MRL::initialize();
        const MRLTavelHeader header; // travels with every request
        MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "firstCall");
        session.setURI(argv[1]);

        query(session, "/content//report | /content//dashboard | /content/*");
        std::printf("\n");
        try {
            query(session, "/content/folder[@name='Payroll']/*");
            std::fprintf(stderr, "first_call: the bus should have refused this query\n");
            return 1;
        } catch (MRLSOAPFaultException& e) {
            std::string messages;
            e.getSOAPFaultMessages(messages);
            std::printf("  refused, as it should be: %s\n  %s\n",
                        orNothing(e.getSOAPFault().getFaultString()), messages.c_str());
        }
        MRL::terminate();
        return 0;
    } catch (HBLThrowable& e) {
        std::fprintf(stderr, "first_call: %s\n", e.getMessage());
        return 1;
    }
}
