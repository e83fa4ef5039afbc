// Messages: the base, the parameters, the factory.

#include "Toolkit/MRLAgentDeleteHotList_Request.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLMessageFactory.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLMessageParam.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLPropEnumArray.h"
#include "Toolkit/MRLRolapCubeAdministrationClearCubeWorkload_Request.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLSearchPathSingleObject.h"
#include "Toolkit/MRLSortArray.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/Failure.h"

#include "HBLCore/HBLSmartPointer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StrEq;

HBLSmartPointer<MRLMessageI> make(MRLMessageI::MessageType type) {
    return HBLSmartPointer<MRLMessageI>(MRLMessageFactory::getInstance().create(type));
}

TEST(Message, MakesItsRegistryAndHeaderWhenAskedAndOnce) {
    const auto message = make(MRLMessageI::eMRLContentQuery_Request);
    EXPECT_EQ(message->getTavelHeader(nullptr), nullptr);
    MRLObjectRegistryI& registry = message->getObjectRegistry();
    EXPECT_EQ(&registry, &message->getObjectRegistry());
    MRLTavelHeader* header = message->getTavelHeader(&registry);
    ASSERT_NE(header, nullptr);
    EXPECT_EQ(message->getTavelHeader(&registry), header);
    message->setTavelHeader(nullptr);
    EXPECT_EQ(message->getTavelHeader(nullptr), nullptr);
}

TEST(Message, SharesTheRegistryItIsGiven) {
    HBLSmartPointer<MRLObjectRegistryI> registry(MRLObjectRegistry::create());
    auto message = make(MRLMessageI::eMRLContentQuery_Request);
    message->setObjectRegistry(registry.get());
    message->setObjectRegistry(registry.get());
    EXPECT_EQ(&message->getObjectRegistry(), registry.get());
    EXPECT_EQ(registry->getReferenceCount(), 2);
    message->setObjectRegistry(nullptr);
    EXPECT_EQ(registry->getReferenceCount(), 1);
    EXPECT_NE(&message->getObjectRegistry(), registry.get());
    message->setObjectRegistry(registry.get());
    message = nullptr;
    EXPECT_EQ(registry->getReferenceCount(), 1);
}

TEST(Message, HasItsParametersInTheOrderOfTheOperation) {
    const auto message = make(MRLMessageI::eMRLContentQuery_Request);
    std::vector<const char*> names;
    message->getParameterNames(names);
    EXPECT_THAT(names,
                ElementsAre(StrEq("searchPath"), StrEq("properties"), StrEq("sortBy"), StrEq("options")));
    EXPECT_STREQ(message->getGeneratedMessageName(), "contentQuery_Request");

    names.clear();
    make(MRLMessageI::eMRLAgentDeleteHotList_Reply)->getParameterNames(names);
    EXPECT_THAT(names, IsEmpty());
}

TEST(Message, ParametersAreMadeReplacedAndClearedByName) {
    MRLContentQuery_Request message;
    MRLObjectRegistryI& registry = message.getObjectRegistry();
    EXPECT_EQ(message.getSearchPath(nullptr), nullptr);
    MRLSearchPathMultipleObject* path = message.getSearchPath(&registry);
    EXPECT_EQ(message.getSearchPath(&registry), path);
    EXPECT_EQ(message.getParameter("searchPath", 0), path);
    EXPECT_EQ(message.getParameterType("searchPath"), MRLSchemaTypeI::eMRLSearchPathMultipleObject);
    EXPECT_EQ(message.getParameterType("properties"), MRLSchemaTypeI::eMRLPropEnumArray) << "declared";

    MRLPropEnumArray properties;
    message.setParameter("properties", &properties, MRLSchemaTypeI::eMRLPropEnumArray);
    EXPECT_EQ(message.getProperties(), &properties);
    message.setParameter("properties", nullptr, MRLSchemaTypeI::eMRLPropEnumArray);
    EXPECT_EQ(message.getProperties(), nullptr);

    for (const char* name : {"unknown", ""})
        message.setParameter(name, &properties, MRLSchemaTypeI::eMRLPropEnumArray);
    EXPECT_EQ(message.getProperties(), nullptr);
    EXPECT_EQ(message.getParameter("unknown", 1), nullptr);
    EXPECT_EQ(message.getParameterType("unknown"), MRLSchemaTypeI::e_Unknown);
}

TEST(Message, ParametersOfAnArrayTypeArePointers) {
    MRLRolapCubeAdministrationClearCubeWorkload_Request message;
    EXPECT_EQ(message.getCubeNames(nullptr), nullptr);
    MRLStringArray* names = message.getCubeNames(&message.getObjectRegistry());
    ASSERT_NE(names, nullptr);
    EXPECT_TRUE(names->empty());
    EXPECT_EQ(message.getCubeNames(&message.getObjectRegistry()), names);
}

TEST(Message, RefusesParametersOfAnotherType) {
    MRLContentQuery_Request message;
    MRLSortArray sort;
    const struct {
        MRLSchemaTypeI::ObjectType type;
        const char* actual;
    } rows[] = {{MRLSchemaTypeI::eMRLSortArray, "bus:sortArray"}, {MRLSchemaTypeI::eString, "xs:string"}};
    for (const auto& row : rows)
        expectFailure([&] { message.setParameter("searchPath", &sort, row.type); }, 0xA647C21F,
                      {"contentQuery_Request", "searchPath", "bus:searchPathMultipleObject", row.actual},
                      "MRLSchemaTypesFactory::typeError()");
    expectAssert([&] { message.setParameter(nullptr, &sort, MRLSchemaTypeI::eMRLSortArray); },
                 "HBL_ASSERT(name);");
    expectAssert([&] { message.getParameter(nullptr, 0); }, "HBL_ASSERT(name);");
    expectAssert([&] { message.getParameterType(nullptr); }, "HBL_ASSERT(name);");
}

TEST(MessageFactory, KnowsMessagesAndTheirDeclaredParameters) {
    MRLMessageFactory& factory = MRLMessageFactory::getInstance();
    const auto type = MRLMessageI::eMRLAgentDeleteHotList_Request;
    EXPECT_EQ(static_cast<int>(type), 0x7BEE4A9B);
    const auto first = make(type);
    const auto second = make(type);
    EXPECT_NE(first.get(), second.get());
    EXPECT_EQ(first->getMessageType(), type);
    EXPECT_EQ(first->getReferenceCount(), 1);

    const auto* parameters = factory.getParameterTypes(type);
    EXPECT_STREQ(parameters[0].paramName, "objectPath");
    EXPECT_EQ(parameters[0].paramType, MRLSchemaTypeI::eMRLSearchPathSingleObject);
    EXPECT_EQ(parameters[1].paramName, nullptr);
    EXPECT_EQ(factory.getParameterTypes(MRLMessageI::eMRLAgentDeleteHotList_Reply)[0].paramName, nullptr);
}

TEST(MessageFactory, MakesNothingOfANumberWithoutAMessage) {
    MRLMessageFactory& factory = MRLMessageFactory::getInstance();
    const auto number = static_cast<MRLMessageI::MessageType>(12345);
    EXPECT_EQ(factory.create(number), nullptr);
    EXPECT_EQ(factory.getParameterTypes(number), nullptr);
    const char* const text = "HBL_ASSERT(msgType != MRLMessageI::e_Unknown);";
    expectAssert([&] { factory.create(MRLMessageI::e_Unknown); }, text);
    expectAssert([&] { factory.getParameterTypes(MRLMessageI::e_Unknown); }, text);
}

TEST(MessageParam, TakesItsValueOnceAndHasNoEmptyName) {
    int value = 0;
    MRLMessageParam param("", MRLSchemaTypeI::eInt, nullptr);
    EXPECT_EQ(param.getParamName(), nullptr);
    EXPECT_EQ(MRLMessageParam(nullptr, MRLSchemaTypeI::eInt, nullptr).getParamName(), nullptr);
    param.setParamValue(&value);
    EXPECT_EQ(param.getParamValue(), &value);
    expectAssert([&] { param.setParamValue(&value); }, "HBL_ASSERT(!m_paramValue);");
}

} // namespace
