#include "Common/MRLException.h"
#include "Common/MRLExceptionMessage.h"
#include "support/Failure.h"

#include "HBLCore/HBLMessageCatalogue.h"
#include "HBLCore/HBLMessageString.h"

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

const std::string kNoOperation =
    "The service \"contentManagerService\" has no operation \"querry\" with these parameters. Check the name "
    "and the types of the parameters, or name the operation by its message.";

MRLException noOperation() {
    return MRLException(0) << (MRLHBLMessage(msg::unknownOperation)
                               << "querry" << I18NString("contentManagerService"));
}

TEST(MRLException, IsBuiltAndThrownInOneStatement) {
    const auto step = [] { HBL_THROW(noOperation(), "MRLPortTypeI::find"); };
    expectFailure(step, msg::unknownOperation, {"querry", "contentManagerService"}, "MRLPortTypeI::find");
    try {
        step();
    } catch (MRLException& e) {
        EXPECT_EQ(e.getMessage(), kNoOperation);
        EXPECT_STREQ(e.getThrowableName(), "MRLException");
        EXPECT_EQ(e.getErrorCodeString(), "HBL-MRL-0000");
    }
}

TEST(MRLException, TakesOverAnotherOneAndAMessage) {
    MRLException original = noOperation();
    original.addBackTrace({"a.cpp", 1}, "f", "HBL_THROW");
    const HBLMessageString more("while serving a test");
    const MRLException with(original, &more);
    const MRLException without(original, nullptr);
    EXPECT_EQ(with.format(), kNoOperation + "\nwhile serving a test");
    EXPECT_EQ(without.format(), kNoOperation);
    EXPECT_EQ(with.getBackTrace(), std::vector<std::string>{"a.cpp:1: f [HBL_THROW]"});
}

TEST(MRLException, CopiesKeepAllAndGoTheirOwnWay) {
    MRLException original = noOperation();
    original.addBackTrace({"a.cpp", 1}, "f", "HBL_THROW");
    const std::unique_ptr<HBLThrowable> clone(static_cast<const HBLThrowable&>(original).clone());
    const std::string before = original.toString();
    EXPECT_EQ(clone->toString(), before);
    MRLException assigned("other");
    assigned = original;
    assigned = *&assigned;
    EXPECT_EQ(assigned.toString(), before);
    original << HBLMessageString("more");
    original.addBackTrace({"b.cpp", 2}, nullptr, "HBL_RETHROW");
    EXPECT_EQ(assigned.toString(), before);
}

TEST(MRLExceptionMessage, FormatsTheNumberAskedFor) {
    MRLExceptionMessage message(msg::unknownFailure);
    message.addParameter("a <b>");
    std::string text = "old";
    EXPECT_STREQ(message.getMessage("xx", msg::malformedXml, text),
                 "The message is not well-formed XML, or more than a message may hold: a <b>");
    message.getMessage(nullptr, 0x12345678, text);
    EXPECT_EQ(text, "MRLmsgs 0x12345678: a <b>");
    MRLExceptionMessage("own text").format(nullptr, text);
    EXPECT_EQ(text, "own text");
}

/// The languages that the texts exist in, by their files: "en", "de", ...
std::vector<std::string> languages() {
    std::vector<std::string> found;
    const std::string begin = "MRLmsgs_";
    for (const auto& file : std::filesystem::directory_iterator(MRL_RESOURCES))
        if (const std::string stem = file.path().stem().string(); stem.starts_with(begin))
            found.push_back(stem.substr(begin.size()));
    return found;
}

class EachCatalogue : public testing::TestWithParam<std::string> {};

TEST_P(EachCatalogue, HasATextForEveryNumberThatShowsEveryParameter) {
    std::ifstream in(MRL_RESOURCES "/MRLmsgs_" + GetParam() + ".txt");
    std::vector<std::string> problems;
    const HBLMessageCatalogue catalogue(in, &problems);
    EXPECT_EQ(problems, std::vector<std::string>{});
    EXPECT_EQ(catalogue.size(), msg::all.size()) << "a text for a number that is not declared";
    for (const auto& [number, parameters] : msg::all) {
        // Asked of the file itself: English would stand in for what a translation lacks.
        EXPECT_NE(catalogue.find(number), nullptr) << std::hex << number << " has no text";
        MRLHBLMessage message(number);
        for (std::size_t i = 0; i < parameters; ++i)
            message << "<" + std::to_string(i) + ">";
        std::string text;
        message.format(GetParam().c_str(), text);
        EXPECT_EQ(text.find('{'), std::string::npos) << "takes more parameters than declared: " << text;
        for (std::size_t i = 0; i < parameters; ++i)
            EXPECT_NE(text.find("<" + std::to_string(i) + ">"), std::string::npos)
                << i << " is missing: " << text;
    }
}

INSTANTIATE_TEST_SUITE_P(Languages, EachCatalogue, testing::ValuesIn(languages()),
                         [](const auto& language) { return language.param; });

TEST(MRLException, ReadsInTheLanguageAskedFor) {
    MRLException exception = MRLException(0) << (MRLHBLMessage(msg::wrongItemType) << "bus:\u00e4"
                                                                                   << "bus:policy")
                                             << MRLHBLMessage(msg::unknownFailure);
    const std::string english = "An item of the type \"bus:\u00e4\" was found in an array of the type "
                                "\"bus:policy\".\nThe request failed for a reason that is not known.";
    const std::string german = "In einem Array vom Typ \u201ebus:policy\u201c steht ein Eintrag vom Typ "
                               "\u201ebus:\u00e4\u201c.\nDie Anfrage ist gescheitert; der Grund ist nicht "
                               "bekannt.";
    const std::pair<const char*, std::string> rows[] = {
        {"de", german},  {"de-AT", german}, {"DE", german},
        {"en", english}, {"fr", english},   {nullptr, english},
    };
    std::string text;
    for (const auto& [language, expected] : rows)
        EXPECT_STREQ(exception.getMessage(language, text), expected.c_str())
            << (language ? language : "null");
}

} // namespace
