// The toolkit as the client of a server that others wrote: one call of the content manager, and whether its
// typed reply is what the request asked for.
//   interop_client URL CASE    ends 0 when the case passes; else says what differs
#include "Common/MRLException.h"
#include "Session/MRLSOAPSession.h"
#include "Toolkit/MRLAddOptions.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBase64BinaryMIMEProp.h"
#include "Toolkit/MRLBaseClassArray.h"
#include "Toolkit/MRLBooleanProp.h"
#include "Toolkit/MRLContentAdd_Reply.h"
#include "Toolkit/MRLContentAdd_Request.h"
#include "Toolkit/MRLContentDelete_Reply.h"
#include "Toolkit/MRLContentDelete_Request.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLFolder.h"
#include "Toolkit/MRLMultilingualToken.h"
#include "Toolkit/MRLMultilingualTokenArray.h"
#include "Toolkit/MRLMultilingualTokenProp.h"
#include "Toolkit/MRLNonNegativeIntegerProp.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLPropEnum.h"
#include "Toolkit/MRLPropEnumArray.h"
#include "Toolkit/MRLQueryOptions.h"
#include "Toolkit/MRLReport.h"
#include "Toolkit/MRLResource.h"
#include "Toolkit/MRLSOAPFault.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLSearchPathSingleObject.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLTavelHeader.h"
#include "Toolkit/MRLTokenProp.h"
#include "Toolkit/MRLUpdateActionEnum.h"
#include "serialization/MRLSOAPFaultException.h"

#include "HBLCore/HBLMessageComponents.h"
#include "HBLCore/HBLSmartPointer.h"
#include "HBLCore/HBLThrowable.h"

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>
#include <type_traits>

namespace {

/// Markup, two, three and four bytes of UTF-8 a character.
constexpr const char* kPath = "/content/folder[@name='Gr\u00f6\u00dfe \u20ac\U0001d11e <&> \"x\"']";

void expect(bool holds, const std::string& what) {
    if (!holds)
        throw std::runtime_error("expected " + what);
}

template <class T>
void expectSame(const T& actual, const std::type_identity_t<T>& expected, const std::string& what) {
    if constexpr (std::is_same_v<T, std::string>)
        expect(actual == expected, what + " to be \"" + expected + "\", got \"" + actual + "\"");
    else
        expect(actual == expected,
               what + " to be " + std::to_string(expected) + ", got " + std::to_string(actual));
}

/// The value of a wrapper that must be there.
template <class Prop>
auto valueOf(const Prop* property, const std::string& what) {
    expect(property != nullptr && property->getValue() != nullptr, what);
    if constexpr (std::is_same_v<decltype(property->getValue()), const char*>)
        return std::string(property->getValue());
    else if constexpr (std::is_same_v<decltype(property->getValue()), int*>)
        return *property->getValue();
    else
        return std::string(property->getValue()->str(), property->getValue()->pcount());
}

template <class T>
const T& as(const MRLBaseClass* object, const char* what) {
    expect(object != nullptr && object->isa(T::s_objectType) != 0, what);
    return static_cast<const T&>(*object);
}

/// One call over a session of its own.
template <class Request, class Reply>
class Call {
public:
    explicit Call(MRLMessageI::MessageType type)
        : m_binding(MRLContentManagerServicePortType::getInstance().createPortTypeBinding(type)) {}

    Request& request() const { return static_cast<Request&>(m_binding->getInputMessage()); }
    const Reply& reply() const { return static_cast<const Reply&>(m_binding->getOutputMessage()); }
    MRLObjectRegistryI* registry() const { return &request().getObjectRegistry(); }

    template <class T>
    T* make() const {
        auto made = std::make_unique<T>();
        registry()->registerPointer(made.get());
        return made.release();
    }

    void submit(const char* url) const {
        const MRLTavelHeader header;
        MRLSOAPSession session(&header, nullptr, nullptr, nullptr, nullptr, "interop");
        session.setURI(url);
        session.submit(*m_binding, MRLSOAPSession::eMRLSOAPUntrusted, nullptr);
    }

private:
    HBLSmartPointer<MRLPortTypeBinding> m_binding;
};

using Query = Call<MRLContentQuery_Request, MRLContentQuery_Reply>;
using Add = Call<MRLContentAdd_Request, MRLContentAdd_Reply>;
using Delete = Call<MRLContentDelete_Request, MRLContentDelete_Reply>;

Query newQuery(const char* path) {
    Query call(MRLMessageI::eMRLContentQuery_Request);
    call.request().getSearchPath(call.registry())->setValue(path);
    return call;
}

/// The answer: a folder for each property asked for, which repeats its name and the options; an item that is
/// nil; a report at the path asked for, with a description that is nil.
void query(const char* url) {
    Query call = newQuery(kPath);
    for (const char* name : {"defaultName", "searchPath"}) {
        auto* property = call.make<MRLPropEnum>();
        property->setValue(name);
        call.request().getProperties(call.registry())->push_back(property);
    }
    auto* options = call.request().getOptions(call.registry());
    options->setMaxObjects(2147483647);
    options->setSchemaInfo(1);
    call.submit(url);

    const auto* result = call.reply().getResult();
    expect(result != nullptr, "a result");
    expectSame(result->size(), 3, "the number of objects (an item that is nil is none)");
    for (std::size_t i = 0; i < 2; ++i) {
        const auto& folder = as<MRLFolder>(result->at(i), "a folder");
        expectSame(valueOf(folder.getDefaultName(), "a name"), i == 0 ? "defaultName" : "searchPath",
                   "the name");
        expectSame(valueOf(folder.getDisplaySequence(), "a whole number"), 2147483647, "maxObjects");
        expectSame(valueOf(folder.getHidden(), "a boolean"), 1, "schemaInfo");
    }
    const auto& report = as<MRLReport>(result->at(2), "a report");
    expectSame(valueOf(report.getSearchPath(), "a path"), kPath, "the search path");
    expect(report.getDefaultDescription() == nullptr || report.getDefaultDescription()->getValue() == nullptr,
           "no description");
}

/// The answer repeats the objects of the request.
void add(const char* url) {
    Add call(MRLMessageI::eMRLContentAdd_Request);
    MRLObjectRegistryI* registry = call.registry();
    call.request().getParentPath(registry)->setValue("/content");
    call.request().getOptions(registry)->setFaultIfObjectReferenced(0);
    call.request().getOptions(registry)->getUpdateAction(registry)->setValue("replace");

    std::string bytes;
    for (int i = 0; i < 1000; ++i)
        bytes += static_cast<char>(i % 256);
    auto* resource = call.make<MRLResource>();
    resource->getDefaultName(registry)->setValue("\u00c5lesund <coast> & more");
    resource->getHidden(registry)->setValue(0);
    resource->getDisplaySequence(registry)->setValue(0);
    resource->getData(registry)->getValue(registry)->append(bytes.data(), bytes.size());
    auto* folder = call.make<MRLFolder>();
    folder->getHidden(registry)->setValue(1);
    auto* name = call.make<MRLMultilingualToken>();
    name->setLocale("el");
    name->setValue("\u03a6\u03ac\u03ba\u03b5\u03bb\u03bf\u03c2");
    folder->getName(registry)->getValue().push_back(name);
    call.request().getObjects(registry)->push_back(resource);
    call.request().getObjects(registry)->push_back(folder);
    call.submit(url);

    const auto* result = call.reply().getResult();
    expect(result != nullptr, "a result");
    expectSame(result->size(), 2, "the number of objects");
    const auto& first = as<MRLResource>(result->at(0), "a resource");
    expectSame(valueOf(first.getDefaultName(), "a name"), "\u00c5lesund <coast> & more", "the name");
    expectSame(valueOf(first.getHidden(), "a boolean"), 0, "hidden");
    expectSame(valueOf(first.getDisplaySequence(), "a whole number"), 0, "the sequence");
    expect(valueOf(first.getData(), "data") == bytes, "the bytes that were sent");
    const auto& second = as<MRLFolder>(result->at(1), "a folder");
    expectSame(valueOf(second.getHidden(), "a boolean"), 1, "hidden");
    expect(second.getDefaultName() == nullptr || second.getDefaultName()->getValue() == nullptr, "no name");
    expect(second.getName() != nullptr && second.getName()->getValue().size() == 1, "a name in one locale");
    expectSame(std::string(second.getName()->getValue().at(0)->getValue()),
               "\u03a6\u03ac\u03ba\u03b5\u03bb\u03bf\u03c2", "the name");
}

/// The answer counts the objects of the request; its options are nil.
void remove(const char* url) {
    Delete call(MRLMessageI::eMRLContentDelete_Request);
    for (int i = 0; i < 3; ++i)
        call.request().getObjects(call.registry())->push_back(call.make<MRLReport>());
    call.submit(url);
    expect(call.reply().getResult() != nullptr, "a result");
    expectSame(*call.reply().getResult(), 3, "the count");
}

/// The answer is a fault of the client that says why, with a detail.
void fault(const char* url) {
    const Query call = newQuery("/refused");
    try {
        call.submit(url);
    } catch (const MRLSOAPFaultException& e) {
        const MRLSOAPFault& refusal = e.getSOAPFault();
        const auto text = [](const char* value) { return std::string(value == nullptr ? "" : value); };
        expect(text(refusal.getFaultCode()).ends_with("Client"),
               "the code Client, got " + text(refusal.getFaultCode()));
        expectSame(text(refusal.getFaultString()), "Refused: Gr\u00f6\u00dfe & <more>", "the text");
        std::string messages;
        e.getSOAPFaultMessages(messages);
        expectSame(messages, "ask for /content", "the messages of the detail");
        return;
    }
    expect(false, "a fault");
}

/// The answer holds one folder twice: written once, and referred to by `href="#..."`. References inside an
/// envelope are not followed, so the second item stands for an object of the array's own abstract type.
void references(const char* url) {
    const Query call = newQuery("/shared");
    try {
        call.submit(url);
    } catch (const MRLException& e) {
        const auto* message = dynamic_cast<const HBLMessageComponents*>(&e.getMessageAt(0));
        expect(message != nullptr && message->getNumber() == msg::typeNotCreatable,
               "the refusal of an abstract type, got " + e.format());
        return;
    }
    expect(false, "a refusal");
}

struct Case {
    std::string_view name;
    void (*run)(const char* url);
};

constexpr Case kCases[] = {
    {"query", query}, {"add", add}, {"delete", remove}, {"fault", fault}, {"references", references},
};

} // namespace

int main(int argc, char** argv) {
    try {
        for (const Case& each : kCases)
            if (argc == 3 && each.name == argv[2]) {
                each.run(argv[1]);
                return 0;
            }
        std::fprintf(stderr, "usage: interop_client URL query|add|delete|fault|references\n");
        return 2;
    } catch (MRLSOAPFaultException& e) {
        const char* text = e.getSOAPFault().getFaultString();
        std::fprintf(stderr, "refused: %s\n", text == nullptr ? e.toString() : text);
    } catch (HBLThrowable& e) {
        std::fprintf(stderr, "%s\n", e.getMessage());
    } catch (const std::exception& e) {
        std::fprintf(stderr, "%s\n", e.what());
    }
    return 1;
}
