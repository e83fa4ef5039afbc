#pragma once

#include "HBLCore/HBLFailure.h"
#include "HBLCore/HBLMessageComponents.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

/// Expects `step` to end in a failed assertion with `text` as its whole text.
template <class Step>
void expectAssert(Step&& step, const std::string& text,
                  const HBLFileLocation& where = HBLFileLocation::current()) {
    const testing::ScopedTrace trace(where.getFile(), where.getLine(), "expectAssert");
    try {
        step();
        ADD_FAILURE() << "nothing was thrown, expected " << text;
    } catch (HBLAssertError& e) {
        EXPECT_EQ(e.getText(), text);
    } catch (HBLThrowable& e) {
        ADD_FAILURE() << "expected " << text << " but got " << e.toString();
    }
}

/// Expects `step` to end in an exception whose first message has this number and these parameters, thrown
/// with this function text (any, when empty).
template <class Step>
void expectFailure(Step&& step, std::uint32_t number, const std::vector<std::string>& parameters,
                   const std::string& function = {},
                   const HBLFileLocation& where = HBLFileLocation::current()) {
    const testing::ScopedTrace trace(where.getFile(), where.getLine(), "expectFailure");
    try {
        step();
        ADD_FAILURE() << "nothing was thrown, expected message number " << std::hex << number;
    } catch (HBLException& e) {
        if (e.getMessageCount() == 0) {
            ADD_FAILURE() << "an exception without a message: " << e.toString();
            return;
        }
        const auto* message = dynamic_cast<const HBLMessageComponents*>(&e.getMessageAt(0));
        ASSERT_NE(message, nullptr) << "the message is a plain text: " << e.toString();
        std::vector<std::string> actual;
        for (const HBLMessageParm& parameter : message->getParameters())
            actual.push_back(parameter.isLocalNumber() ? std::to_string(parameter.getNumber())
                                                       : parameter.getText().toUtf8());
        EXPECT_EQ(message->getNumber(), number) << e.toString();
        EXPECT_EQ(actual, parameters);
        const auto& entries = e.getBackTrace();
        EXPECT_TRUE(
            function.empty() ||
            std::any_of(entries.begin(), entries.end(),
                        [&](const auto& entry) { return entry.ends_with(": " + function + " [HBL_THROW]"); }))
            << "not thrown by " << function << ": " << e.toString();
    } catch (HBLThrowable& e) {
        ADD_FAILURE() << "expected message number " << std::hex << number << " but got " << e.toString();
    }
}
