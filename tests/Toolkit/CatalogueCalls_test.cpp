// What holds for every message and every operation of the catalogue.

#include "CatalogueValues.h"
#include "Toolkit/MRLMessageFactory.h"
#include "Toolkit/MRLMessageParam.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "data/CatalogueData.h"
#include "data/EmptyMessage.h"
#include "data/LibraryAccess.h"
#include "support/Failure.h"
#include "support/Table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace {

using Type = MRLSchemaTypeI::ObjectType;
using MessageType = MRLMessageI::MessageType;
using Binding = HBLSmartPointer<MRLPortTypeBinding>;
using mrl::tool::EmptyMessage;
using mrl::tool::MemberRow;
using mrl::tool::MessageRow;
using mrl::tool::OperationRow;
using mrl::tool::ServiceRow;

/// The declared type of a parameter: all text is a string, whatever the schema calls it.
Type declaredType(const MemberRow& parameter) {
    static const std::set<std::string_view> texts{"anyType",  "anyURI", "date",    "dateTime", "duration",
                                                  "language", "ncname", "nmtoken", "time",     "token"};
    static const std::set<std::string_view> numbers{"nonNegativeInteger", "positiveInteger"};
    return texts.contains(parameter.type)     ? MRLSchemaTypeI::eString
           : numbers.contains(parameter.type) ? MRLSchemaTypeI::eInteger
                                              : schemaTypesFactory().stringToObjectType(parameter.type);
}

const MessageRow& rowOf(const char* message) {
    return *std::ranges::find_if(
        mrl::tool::messages(), [&](const MessageRow& row) { return std::string_view(row.name) == message; });
}

/// A value that no parameter of the declared type takes.
Type wrongFor(Type declared) {
    return MRLSchemaTypesFactory::isGeneratedType(declared) != 0 || declared == MRLSchemaTypeI::eBase64Binary
               ? MRLSchemaTypeI::eString
               : MRLSchemaTypeI::eMRLSchemaInfo;
}

TEST(CatalogueMessages, EachIsMadeByNumberWithItsParametersInOrder) {
    std::size_t lists = 0;
    for (const MessageRow& row : mrl::tool::messages()) {
        SCOPED_TRACE(row.name);
        const auto type = numberOf<MessageType>(row.name);
        const HBLSmartPointer<MRLMessageI> message(MRLMessageFactory::getInstance().create(type));
        ASSERT_TRUE(message);
        EXPECT_EQ(message->getMessageType(), type);
        EXPECT_STREQ(message->getGeneratedMessageName(), row.name);

        std::vector<std::string_view> expected;
        for (const MemberRow& parameter : row.parameters)
            expected.emplace_back(parameter.name);
        std::vector<const char*> names;
        message->getParameterNames(names);
        EXPECT_EQ(std::vector<std::string_view>(names.begin(), names.end()), expected);

        const auto* declared = MRLMessageFactory::getInstance().getParameterTypes(type);
        if (declared == nullptr) {
            EXPECT_TRUE(std::string_view(row.name).starts_with("_Null_"));
            continue;
        }
        ++lists;
        for (const MemberRow& parameter : row.parameters) {
            ASSERT_NE(declared->paramName, nullptr) << parameter.name;
            EXPECT_STREQ(declared->paramName, parameter.name);
            EXPECT_EQ(declared->paramType, declaredType(parameter)) << parameter.name;
            ++declared;
        }
        EXPECT_EQ(declared->paramName, nullptr) << "the end of the list";
    }
    EXPECT_EQ(mrl::tool::messages().size(), 478u);
    EXPECT_EQ(lists, 476u);
}

TEST(CatalogueMessages, EachParameterIsSetAndReadByNameAndRefusesAnotherType) {
    std::size_t count = 0;
    for (const MessageRow& row : mrl::tool::messages()) {
        const HBLSmartPointer<MRLMessageI> message(
            MRLMessageFactory::getInstance().create(numberOf<MessageType>(row.name)));
        CatalogueValues values;
        MRLSchemaTypeI* const object = values.make(MRLSchemaTypeI::eMRLSchemaInfo);
        for (const MemberRow& parameter : row.parameters) {
            SCOPED_TRACE(std::string(row.name) + " " + parameter.name);
            const Type declared = declaredType(parameter);
            EXPECT_EQ(message->getParameter(parameter.name, 0), nullptr);
            EXPECT_EQ(message->getParameterType(parameter.name), declared);

            Type actual{};
            void* const value = values.valueFor(declared, actual);
            ASSERT_NE(value, nullptr) << "nothing fits " << parameter.type;
            message->setParameter(parameter.name, value, actual);
            EXPECT_TRUE(CatalogueValues::holds(declared, message->getParameter(parameter.name, 0), value));
            EXPECT_EQ(message->getParameterType(parameter.name), actual) << "of the value";

            expectFailure([&] { message->setParameter(parameter.name, object, wrongFor(declared)); },
                          0xA647C21F,
                          {row.name, parameter.name, schemaTypesFactory().objectTypeToXSIType(declared),
                           schemaTypesFactory().objectTypeToXSIType(wrongFor(declared))},
                          "MRLSchemaTypesFactory::typeError()");
            EXPECT_TRUE(CatalogueValues::holds(declared, message->getParameter(parameter.name, 0), value))
                << "a refused value changes nothing";
            ++count;
        }
    }
    EXPECT_EQ(count, 670u);
}

/// The SOAP action as the services are described: a namespace of the service and an ending.
std::string actionOf(const ServiceRow& service, const OperationRow& operation) {
    static const std::map<std::string, std::string> endings = [] {
        std::map<std::string, std::string> found;
        for (const auto& row : mrl::test::plainTable("soap_actions.txt"))
            found[row[0]] = row[1];
        return found;
    }();
    const std::string space =
        std::string_view(service.name) == "VantorLumenaPortType"
            ? "http://developer.vantor.example/schemas/tavel/3#reportService"
            : std::string("http://www.vantor.example/xmlns/prod/vantor/") + service.name + "/202004/";
    auto ending = endings.find(std::string(service.name) + "." + operation.request);
    if (ending == endings.end())
        ending = endings.find(operation.name);
    return ending == endings.end() ? space : space + ending->second;
}

class CatalogueOperations : public testing::Test {
protected:
    /// Calls `check(service, port type, operation)` for every operation.
    template <class Check>
    static void forEach(Check&& check) {
        for (const ServiceRow& service : mrl::tool::services()) {
            const MRLPortTypeI* portType = mrl::tool::portType(service.name);
            ASSERT_NE(portType, nullptr) << service.name;
            for (const OperationRow& operation : service.operations) {
                SCOPED_TRACE(std::string(service.name) + "." + operation.name + " " + operation.request);
                check(service, *portType, operation);
            }
        }
    }

    static void expectBinding(const MRLPortTypeBinding& binding, const ServiceRow& service,
                              const OperationRow& operation) {
        EXPECT_STREQ(binding.getOperationName(), operation.name);
        EXPECT_EQ(std::string("http://developer.vantor.example/schemas/") +
                      (std::string_view(service.name) == "VantorLumenaPortType"
                           ? "tavel/3/"
                           : std::string(service.name) + "/1"),
                  binding.getOperationNamespace());
        EXPECT_EQ(binding.getSOAPAction(), actionOf(service, operation));
        EXPECT_STREQ(binding.getInputMessage().getGeneratedMessageName(), operation.request);
        EXPECT_STREQ(binding.getOutputMessage().getGeneratedMessageName(), operation.reply);
    }
};

TEST_F(CatalogueOperations, EachIsBoundByTheTypeOfItsRequest) {
    std::size_t entries = 0;
    forEach([&](const ServiceRow& service, const MRLPortTypeI& portType, const OperationRow& operation) {
        EXPECT_STREQ(portType.getName(), service.name);
        const Binding binding(portType.createPortTypeBinding(numberOf<MessageType>(operation.request)));
        expectBinding(*binding, service, operation);
        EXPECT_EQ(&binding->getBoundPortType(), &portType);
        ++entries;
    });
    for (const ServiceRow& service : mrl::tool::services()) {
        SCOPED_TRACE(service.name);
        const MRLPortTypeI& portType = *mrl::tool::portType(service.name);
        EmptyMessage request(static_cast<MessageType>(1));
        EmptyMessage reply(static_cast<MessageType>(2));
        const Binding binding(portType.createPortTypeBinding(request, reply));
        EXPECT_STREQ(binding->getOperationName(), "");
        EXPECT_STREQ(binding->getSOAPAction(), portType.getBoundNamespace());
        ++entries;
    }
    EXPECT_EQ(entries, 437u);
}

TEST_F(CatalogueOperations, EachIsBoundByItsNameAndAllItsParameters) {
    // Its parameters are also the first of another signature, which is tried before it.
    static const std::map<std::string_view, std::string_view> covered{
        {"many_CMS_query_1_Request", "CMS_query_2_Request"},
    };
    forEach([&](const ServiceRow& service, const MRLPortTypeI& portType, const OperationRow& operation) {
        CatalogueValues values;
        std::vector<std::unique_ptr<MRLMessageParam>> owned;
        std::vector<MRLMessageParam*> given;
        for (const MemberRow& parameter : rowOf(operation.request).parameters) {
            Type actual{};
            void* const value = values.valueFor(declaredType(parameter), actual);
            owned.push_back(std::make_unique<MRLMessageParam>(parameter.name, actual, value));
            given.push_back(owned.back().get());
        }
        const Binding binding(portType.createPortTypeBinding(operation.name, given));
        MRLMessageI& request = binding->getInputMessage();
        if (const auto other = covered.find(operation.request); other != covered.end())
            EXPECT_EQ(request.getGeneratedMessageName(), other->second);
        else
            expectBinding(*binding, service, operation);
        for (const MRLMessageParam* parameter : given)
            EXPECT_TRUE(CatalogueValues::holds(request.getParameterType(parameter->getParamName()),
                                               request.getParameter(parameter->getParamName(), 0),
                                               parameter->getParamValue()))
                << parameter->getParamName();
    });
}

TEST_F(CatalogueOperations, EachParameterHasTheTypeOfTheLastSignatureThatHasIt) {
    std::map<std::string, Type> expected; // "service operation parameter"
    forEach([&](const ServiceRow& service, const MRLPortTypeI& /*portType*/, const OperationRow& operation) {
        for (const MemberRow& parameter : rowOf(operation.request).parameters)
            expected[std::string(service.name) + " " + operation.name + " " + parameter.name] =
                declaredType(parameter);
    });
    forEach([&](const ServiceRow& service, const MRLPortTypeI& portType, const OperationRow& operation) {
        for (const MemberRow& parameter : rowOf(operation.request).parameters)
            EXPECT_EQ(portType.resolveOperationParamType(operation.name, parameter.name),
                      expected[std::string(service.name) + " " + operation.name + " " + parameter.name])
                << parameter.name;
        EXPECT_EQ(portType.resolveOperationParamType(operation.name, "no such parameter"),
                  MRLSchemaTypeI::e_Unknown);
    });
}

} // namespace
