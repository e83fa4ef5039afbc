// Port types, bindings, and the choice between signatures.

#include "Toolkit/MRLAccount.h"
#include "Toolkit/MRLContentManagerServicePortType.h"
#include "Toolkit/MRLContentQuery_Reply.h"
#include "Toolkit/MRLContentQuery_Request.h"
#include "Toolkit/MRLMessageParam.h"
#include "Toolkit/MRLParameterSignature.h"
#include "Toolkit/MRLPortTypeBinding.h"
#include "Toolkit/MRLVantorLumenaPortType.h"
#include "support/Failure.h"

#include "HBLCore/HBLSmartPointer.h"

#include <memory>
#include <vector>

namespace {

using Type = MRLSchemaTypeI::ObjectType;
using Binding = HBLSmartPointer<MRLPortTypeBinding>;
using Descriptor = MRLMessageFactory::MRLParamDescriptor;

/// Given parameters, as a caller would list them.
class Given {
public:
    struct Row {
        const char* name;
        Type type;
        void* value = nullptr;
    };
    Given(std::initializer_list<Row> rows) {
        for (const Row& row : rows) {
            m_owned.push_back(std::make_unique<MRLMessageParam>(row.name, row.type, row.value));
            m_params.push_back(m_owned.back().get());
        }
    }
    const std::vector<MRLMessageParam*>& params() const { return m_params; }

private:
    std::vector<std::unique_ptr<MRLMessageParam>> m_owned;
    std::vector<MRLMessageParam*> m_params;
};

constexpr auto text = MRLSchemaTypeI::eString;
constexpr auto number = MRLSchemaTypeI::eInt;
constexpr auto baseClass = MRLSchemaTypeI::eMRLBaseClass;
constexpr auto account = MRLSchemaTypeI::eMRLAccount;

TEST(ParameterSignature, AcceptsAnOrderedPartOfWhatIsDeclared) {
    const Descriptor abc[] = {
        {"a", text}, {"b", number}, {"c", baseClass}, {nullptr, MRLSchemaTypeI::e_Unknown}};
    const Descriptor none[] = {{nullptr, MRLSchemaTypeI::e_Unknown}};
    const struct {
        const char* what;
        const Descriptor* declared;
        Given given;
        bool fits;
    } rows[] = {
        {"all", abc, {{"a", text}, {"b", number}, {"c", baseClass}}, true},
        {"all, one of a derived type", abc, {{"a", text}, {"b", number}, {"c", account}}, true},
        {"all, out of order", abc, {{"b", number}, {"a", text}, {"c", baseClass}}, false},
        {"nothing", abc, {}, true},
        {"nothing where nothing is declared", none, {}, true},
        {"one where nothing is declared", none, {{"a", text}}, false},
        {"some in order", abc, {{"a", text}, {"c", account}}, true},
        {"some out of order", abc, {{"c", account}, {"a", text}}, false},
        {"one twice", abc, {{"a", text}, {"a", text}}, false},
        {"one with another type", abc, {{"b", text}}, false},
        {"one with another name", abc, {{"d", text}}, false},
        {"an object of another class", abc, {{"c", MRLSchemaTypeI::eMRLNameValue}}, false},
        {"too many", abc, {{"a", text}, {"b", number}, {"c", baseClass}, {"d", text}}, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(isSameParameterSignature(row.declared, row.given.params()), row.fits) << row.what;
}

TEST(ParameterSignature, AsksTheValueForItsAncestors) {
    MRLAccount value;
    const Given given{{"c", static_cast<Type>(77), &value}};
    EXPECT_TRUE(isSameParameter({"c", baseClass}, given.params()[0])) << "a type that only the value knows";
}

TEST(ParameterSignature, RefusesWhatHasNoNameOrNoList) {
    expectAssert([] { isSameParameterSignature(nullptr, {}); }, "HBL_ASSERT(expectedParamList);");
    expectAssert([] { isSameParameter({"a", text}, nullptr); }, "HBL_ASSERT(param2);");
    const Given unnamed{{"", text}};
    expectAssert([&] { isSameParameter({"a", text}, unnamed.params()[0]); }, "HBL_ASSERT(param2Name);");
    expectAssert([&] { isSameParameter({nullptr, text}, unnamed.params()[0]); }, "HBL_ASSERT(param1Name);");
    const Given abstract{{"c", MRLSchemaTypeI::eMRLUiClass}};
    expectFailure(
        [&] {
            isSameParameter({"c", baseClass}, abstract.params()[0]);
        },
        0xA647EC7B, {"bus:uiClass"});
}

class PortType : public testing::Test {
protected:
    const MRLPortTypeI& contentManager = MRLContentManagerServicePortType::getInstance();
    const MRLPortTypeI& lumena = MRLVantorLumenaPortType::getInstance();
};

TEST_F(PortType, ResolvesNothingWithoutNames) {
    expectAssert([&] { contentManager.resolveOperationParamType(nullptr, "a"); },
                 "HBL_ASSERT(pOperationName);");
    expectAssert([&] { contentManager.resolveOperationParamType("run", nullptr); },
                 "HBL_ASSERT(pParamName);");
}

TEST_F(PortType, SharesMessagesGivenByPointerAndBorrowsReferences) {
    HBLSmartPointer<MRLMessageI> input(new MRLContentQuery_Request);
    HBLSmartPointer<MRLMessageI> output(new MRLContentQuery_Reply);
    {
        const Binding shared(contentManager.createPortTypeBinding(input.get()));
        EXPECT_EQ(&shared->getInputMessage(), input.get());
        EXPECT_EQ(input->getReferenceCount(), 2);
        EXPECT_EQ(shared->getOutputMessage().getReferenceCount(), 1) << "a new one";
        const Binding borrowed(contentManager.createPortTypeBinding(*input, *output));
        EXPECT_EQ(&borrowed->getOutputMessage(), output.get());
        EXPECT_EQ(input->getReferenceCount(), 2);
        EXPECT_EQ(output->getReferenceCount(), 1);
    }
    EXPECT_EQ(input->getReferenceCount(), 1);
}

TEST_F(PortType, RefusesMessagesThatItDoesNotJoin) {
    MRLContentQuery_Request input;
    MRLContentQuery_Reply output;
    const char* const none =
        "HBL_ASSERT_NAMED(FALSE, \"There is no binding for the requested input/output message.\");";
    expectAssert([&] { contentManager.createPortTypeBinding(output, input); }, none);
    expectAssert([&] { contentManager.createPortTypeBinding(&output); }, none);
    expectAssert([&] { contentManager.createPortTypeBinding(MRLMessageI::eMRLCopy_1_Request); }, none);
    expectAssert([&] { contentManager.createPortTypeBinding(input, input); },
                 "HBL_ASSERT_NAMED(pOperationMetadata->outputMessageType == outputMessage.getMessageType(), "
                 "\"There is no defined binding between the requested input and output messages.\");");
    expectAssert([&] { contentManager.createPortTypeBinding(static_cast<MRLMessageI*>(nullptr)); },
                 "HBL_ASSERT(pInputMessage);");
    // The entry without a name joins two types that no message has.
    expectAssert([&] { contentManager.createPortTypeBinding(static_cast<MRLMessageI::MessageType>(1)); },
                 "HBL_ASSERT(&m_inputMessage);");
}

TEST_F(PortType, ABindingRefusesWhatIsMissing) {
    HBLSmartPointer<MRLMessageI> message(new MRLContentQuery_Request);
    const auto bind = [&](const char* name, const char* space, const char* action, MRLMessageI* output) {
        return [=, this] {
            MRLPortTypeBinding::create(name, space, action, contentManager, message.get(), output);
        };
    };
    expectAssert(bind(nullptr, "", "", message.get()), "HBL_ASSERT(m_pOperationName);");
    expectAssert(bind("", nullptr, "", message.get()), "HBL_ASSERT(m_pOperationNamespace);");
    expectAssert(bind("", "", nullptr, message.get()), "HBL_ASSERT(m_pSOAPAction);");
    expectAssert(bind("", "", "", nullptr), "HBL_ASSERT(&m_outputMessage);");
    EXPECT_EQ(message->getReferenceCount(), 1) << "a refused binding keeps nothing";
}

TEST_F(PortType, ChoosesTheFirstSignatureThatFits) {
    using Message = MRLMessageI;
    constexpr auto props = MRLSchemaTypeI::eMRLPropEnumArray;
    const struct {
        const char* what;
        Given given;
        Message::MessageType chosen;
    } rows[] = {
        {"nothing given", {}, Message::eMRLCMS_query_1_Request},
        {"what the first and the last share",
         {{"search", text}, {"properties", props}},
         Message::eMRLCMS_query_1_Request},
        {"what the second and the third share",
         {{"requests", MRLSchemaTypeI::eMRLQueryRequestArray}},
         Message::eMRLCMS_query_2_Request},
        {"what the last alone has",
         {{"search", text}, {"options", MRLSchemaTypeI::eMRLQueryReportOptions}},
         Message::eMRLRS_query_Request},
    };
    for (const auto& row : rows) {
        const Binding binding(lumena.createPortTypeBinding("query", row.given.params()));
        EXPECT_EQ(binding->getInputMessage().getMessageType(), row.chosen) << row.what;
    }
    const Given wrong{{"properties", props}, {"search", text}};
    expectFailure([&] { lumena.createPortTypeBinding("query", wrong.params()); }, 0xA64112C6,
                  {"query", "VantorLumenaPortType"});
    expectFailure([&] { lumena.createPortTypeBinding("unknown", {}); }, 0xA64112C6,
                  {"unknown", "VantorLumenaPortType"});
    expectAssert([&] { lumena.createPortTypeBinding(nullptr, {}); }, "HBL_ASSERT(pOperationName);");
}

} // namespace
