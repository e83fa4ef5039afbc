// The inputs that are kept, some made by hand and some found by the fuzzer, each given to its target.
#include "fuzz/Targets.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace {

class Corpus : public testing::TestWithParam<mrl::fuzz::NamedTarget> {};

INSTANTIATE_TEST_SUITE_P(Fuzz, Corpus,
                         testing::ValuesIn(mrl::fuzz::targets().begin(), mrl::fuzz::targets().end()),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_P(Corpus, EndsInAResultOrARefusal) {
    const std::filesystem::path folder = std::filesystem::path(MRL_TEST_DATA) / "corpus" / GetParam().name;
    int inputs = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        SCOPED_TRACE(entry.path().filename());
        std::ifstream file(entry.path(), std::ios::binary);
        const std::string input{std::istreambuf_iterator<char>(file), {}};
        EXPECT_NO_THROW(GetParam().run(input));
        ++inputs;
    }
    EXPECT_GT(inputs, 0);
}

} // namespace
