// The generator's small catalogue, linked with the runtime in place of the real one: every kind of member,
// class and parameter, from the wire into typed objects and back.
#include "Toolkit/MRLBareGadget.h"
#include "Toolkit/MRLBase64Binary.h"
#include "Toolkit/MRLBox.h"
#include "Toolkit/MRLFindServicePortType.h"
#include "Toolkit/MRLFind_1_Reply.h"
#include "Toolkit/MRLFind_1_Request.h"
#include "Toolkit/MRLFind_2_Request.h"
#include "Toolkit/MRLGadget.h"
#include "Toolkit/MRLIntArray.h"
#include "Toolkit/MRLLabel.h"
#include "Toolkit/MRLLinkEnum.h"
#include "Toolkit/MRLMarker.h"
#include "Toolkit/MRLMessageParam.h"
#include "Toolkit/MRLObjectRegistry.h"
#include "Toolkit/MRLPart.h"
#include "Toolkit/MRLPartArray.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLRefProp.h"
#include "Toolkit/MRLSchemaTypesFactory.h"
#include "Toolkit/MRLShapeEnum.h"
#include "Toolkit/MRLShapeEnumArray.h"
#include "Toolkit/MRLStringArray.h"
#include "Toolkit/MRLStringProp.h"
#include "Toolkit/MRLSwap.h"
#include "Toolkit/MRLThingArray.h"
#include "Toolkit/MRLThingProp.h"
#include "serialization/MRLSOAPMessageIDeserializer.h"
#include "serialization/MRLSOAPMessageISerializer.h"
#include "support/Failure.h"
#include "support/Files.h"

#include "HBLCore/HBLSmartPointer.h"
#include "PLQStreams/PLQMemoryInputStream.h"
#include "PLQStreams/PLQMemoryOutputStream.h"

#include <gmock/gmock.h>

#include <functional>
#include <memory>

using testing::ElementsAre;

namespace {

using Type = MRLSchemaTypeI::ObjectType;
using Binding = HBLSmartPointer<MRLPortTypeBinding>;

std::string golden(const std::string& name) {
    return mrl::test::bytesOfFile(MRL_TEST_DATA "/" + name);
}

Binding find(MRLMessageI::MessageType request) {
    return Binding(MRLFindServicePortType::getInstance().createPortTypeBinding(request));
}

std::vector<std::string> childNames(const MRLSchemaTypeI& object) {
    std::vector<const char*> names;
    object.getChildObjectNames(names, true);
    return {names.begin(), names.end()};
}

class KitchenSink : public testing::Test {
protected:
    /// The reply of golden file find_1_Reply.xml, read.
    MRLThingArray& things() {
        const std::string document = golden("find_1_Reply.xml");
        PLQMemoryInputStream stream(document.data(), document.size());
        MRLSOAPMessageIDeserializer().parse(stream, *binding, binding->getOutputMessage());
        auto& reply = static_cast<MRLFind_1_Reply&>(binding->getOutputMessage());
        return *reply.getResult();
    }
    MRLGadget& gadget() { return static_cast<MRLGadget&>(*things().at(0)); }

    Binding binding = find(MRLMessageI::eMRLFind_1_Request);
    HBLSmartPointer<MRLObjectRegistryI> registry{MRLObjectRegistry::create()};
};

TEST_F(KitchenSink, EveryKindOfMemberIsReadFromTheWire) {
    const MRLThingArray& all = things();
    ASSERT_EQ(all.size(), 2u);
    ASSERT_EQ(all.at(0)->getObjectType(), MRLSchemaTypeI::eMRLGadget) << "declared as an array of things";
    const auto& gadget = static_cast<const MRLGadget&>(*all.at(0));
    EXPECT_STREQ(gadget.getName(), "G & co");
    EXPECT_EQ(*gadget.getActive(), 1);
    EXPECT_EQ(*gadget.getCount(), -7);
    EXPECT_EQ(std::string(gadget.getData()->str(), gadget.getData()->pcount()), std::string("\0\1\2", 3));
    EXPECT_STREQ(gadget.getFor(), "rent");
    ASSERT_EQ(gadget.getKeeper()->getObjectType(), MRLSchemaTypeI::eMRLBareGadget);
    EXPECT_STREQ(gadget.getKeeper()->getName(), "keeper");
    EXPECT_EQ(*gadget.getPart()->getHeight(), 2);
    EXPECT_EQ(gadget.getPart()->getWidth(), nullptr);
    ASSERT_EQ(gadget.getParts().size(), 2u);
    EXPECT_EQ(*gadget.getParts().at(1)->getWidth(), 9);
    EXPECT_EQ(*gadget.getRatio(), 0.25F);
    EXPECT_EQ(gadget.getShape()->getValue(), MRLShapeEnum::eSemi_round);
    EXPECT_THAT(std::vector<int>(gadget.getSizes().begin(), gadget.getSizes().end()), ElementsAre(3, 1, 2));
    ASSERT_EQ(gadget.getTags().size(), 2u);
    EXPECT_STREQ(gadget.getTags().at(1), "b");
    EXPECT_EQ(*gadget.getTotal(), 12);
    EXPECT_EQ(all.at(1)->getObjectType(), MRLSchemaTypeI::eMRLBareGadget);
}

TEST_F(KitchenSink, WhatWasReadIsWrittenAsItCame) {
    things();
    PLQMemoryOutputStream out(4096, 0);
    MRLSOAPMessageISerializer().serialize(*binding, binding->getOutputMessage(), out, nullptr, 1, 0);
    EXPECT_EQ(std::string(out.bytes(), out.length()), golden("find_1_Reply.xml"));
}

TEST_F(KitchenSink, ACopyIsEqualUntilOneMemberDiffers) {
    MRLGadget& original = gadget();
    const struct {
        const char* member;
        std::function<void(MRLGadget&)> change;
    } rows[] = {
        {"name", [](MRLGadget& copy) { copy.setName("other"); }},
        {"active", [](MRLGadget& copy) { copy.setActive(0); }},
        {"count", [](MRLGadget& copy) { copy.resetCount(); }},
        {"data", [](MRLGadget& copy) { copy.getData()->append("x", 1); }},
        {"for", [](MRLGadget& copy) { copy.setFor(nullptr); }},
        {"keeper", [](MRLGadget& copy) { copy.getKeeper()->setName("other"); }},
        {"part", [](MRLGadget& copy) { copy.getPart()->setWidth(1); }},
        {"parts", [](MRLGadget& copy) { copy.getParts().clear(); }},
        {"ratio", [](MRLGadget& copy) { copy.setRatio(0.5F); }},
        {"shape", [](MRLGadget& copy) { copy.getShape()->setValue("round"); }},
        {"sizes", [](MRLGadget& copy) { copy.getSizes().push_back(4); }},
        {"tags", [](MRLGadget& copy) { copy.getTags().erase(copy.getTags().begin()); }},
        {"total", [](MRLGadget& copy) { copy.setTotal(13); }},
    };
    std::vector<std::string> changed;
    for (const auto& row : rows) {
        auto& copy =
            static_cast<MRLGadget&>(MRLSchemaTypesFactory::getInstance().createCopy(original, *registry));
        EXPECT_TRUE(original == copy) << row.member;
        row.change(copy);
        EXPECT_TRUE(original != copy) << row.member;
        changed.emplace_back(row.member);
    }
    EXPECT_EQ(changed, childNames(original)) << "a member without a row here, or out of order";
    EXPECT_STREQ(original.getKeeper()->getName(), "keeper") << "copies are deep";
}

TEST_F(KitchenSink, ClassesOfOddShape) {
    EXPECT_THAT(childNames(MRLSwap()), ElementsAre("second", "first")) << "as written, not by name";
    EXPECT_THAT(childNames(MRLLabel()), ElementsAre("")) << "the text of its own";
    EXPECT_THAT(childNames(MRLMarker()), ElementsAre());
    EXPECT_EQ(childNames(MRLBareGadget()), childNames(MRLGadget()));
    EXPECT_THAT(childNames(MRLRefProp()), ElementsAre("schemaInfo", "properties", "refPropName"));
    EXPECT_TRUE(MRLMarker() == MRLMarker());

    MRLBox box;
    auto* const inner = new MRLBareGadget;
    registry->registerPointer(inner);
    box.getThings().push_back(inner);
    auto& copy = static_cast<MRLBox&>(MRLSchemaTypesFactory::getInstance().createCopy(box, *registry));
    EXPECT_TRUE(box == copy);
    EXPECT_NE(copy.getThings().at(0), inner);

    MRLThingProp wrapper;
    expectAssert([&] { wrapper.getValue(registry.get()); },
                 "HBL_ASSERT_NAMED(FALSE, \"Creation on get not supported on abstract types\");");
    wrapper.setValue(inner);
    EXPECT_EQ(wrapper.getChildObject("value", 0), static_cast<MRLSchemaTypeI*>(inner));
}

TEST_F(KitchenSink, EnumerationsAreTypesOfTheWireUnlessTheyAreUris) {
    EXPECT_STREQ(MRLShapeEnum::enumToString(MRLShapeEnum::eSemi_round), "semi-round");
    EXPECT_STREQ(MRLLinkEnum::enumToString(MRLLinkEnum::eNext),
                 "http://developer.golden.example/vrok/constants/linkEnum#next");
    expectFailure([] { MRLShapeEnum().setValue("square"); }, 0xA645DC29, {"square"},
                  "MRLShapeEnum::stringToEnum()");
    const std::unique_ptr<MRLSchemaTypeI> shape(
        MRLSchemaTypesFactory::getInstance().create(MRLSchemaTypeI::eMRLShapeEnum));
    EXPECT_EQ(shape->getObjectType(), MRLSchemaTypeI::eMRLShapeEnum);
    EXPECT_THROW(MRLSchemaTypesFactory::getInstance().create(MRLLinkEnum::s_objectType), HBLThrowable);
}

TEST_F(KitchenSink, AnOperationOfTwoSignaturesIsChosenByItsParameters) {
    const MRLMessageParam name("name", MRLSchemaTypeI::eString, nullptr);
    const MRLMessageParam like("like", MRLSchemaTypeI::eMRLBareGadget, nullptr);
    const MRLMessageParam exact("exact", MRLSchemaTypeI::eBoolean, nullptr);
    const struct {
        std::vector<MRLMessageParam*> given;
        MRLMessageI::MessageType request;
        const char* action;
    } rows[] = {
        {{const_cast<MRLMessageParam*>(&name)},
         MRLMessageI::eMRLFind_1_Request,
         "http://www.golden.example/xmlns/findService/202004/.high"},
        {{const_cast<MRLMessageParam*>(&like), const_cast<MRLMessageParam*>(&exact)},
         MRLMessageI::eMRLFind_2_Request,
         "http://www.golden.example/xmlns/findService/202004/"},
    };
    for (const auto& row : rows) {
        const Binding bound(MRLFindServicePortType::getInstance().createPortTypeBinding("find", row.given));
        EXPECT_EQ(bound->getInputMessage().getMessageType(), row.request);
        EXPECT_STREQ(bound->getSOAPAction(), row.action);
    }
}

} // namespace
