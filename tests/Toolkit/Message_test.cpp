// Messages: the base, the parameters, the factory.

#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLMessageFactory.h"
#include "Toolkit/MRLMessageI.h"
#include "Toolkit/MRLMessageParam.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLPropEnumArray.h"
#include "Toolkit/MRLSearchPathMultipleObject.h"
#include "Toolkit/MRLTavelHeader.h"
#include "support/Failure.h"

#include "HBLCore/HBLSmartPointer.h"

namespace {

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

TEST(Message, ParametersAreMadeReplacedAndClearedByName) {
    MRLContentQuery_Request message;
    MRLObjectRegistryI& registry = message.getObjectRegistry();
    EXPECT_EQ(message.getSearchPath(nullptr), nullptr);
    MRLSearchPathMultipleObject* path = message.getSearchPath(&registry);
    EXPECT_EQ(message.getSearchPath(&registry), path);

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

TEST(Message, RefusesParametersWithoutAName) {
    MRLContentQuery_Request message;
    expectAssert([&] { message.setParameter(nullptr, &message, MRLSchemaTypeI::eMRLSortArray); },
                 "HBL_ASSERT(name);");
    expectAssert([&] { message.getParameter(nullptr, 0); }, "HBL_ASSERT(name);");
    expectAssert([&] { message.getParameterType(nullptr); }, "HBL_ASSERT(name);");
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
