// SPDX-License-Identifier: MIT
#include "scenara-shot/CommandLine.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace scenara {
namespace {

std::string ErrorOf(const std::vector<std::string>& words) {
    try {
        static_cast<void>(ParseCommandLine(words));
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "no error";
}

TEST(CommandLine, TakesEveryOption) {
    const ShotOptions options = ParseCommandLine({"--mugen", "/m", "a.def", "--model", "a.json",
                                                  "--sprites", "dir", "--out", "a.png", "--plain"});
    EXPECT_EQ(options.mugeDir, "/m");
    EXPECT_EQ(options.stage, "a.def");
    EXPECT_EQ(options.modelFile, "a.json");
    EXPECT_EQ(options.spriteDir, "dir");
    EXPECT_EQ(options.pictureFile, "a.png");
    EXPECT_TRUE(options.plain);
    EXPECT_FALSE(options.help);
}

TEST(CommandLine, AdditionsAreOnUnlessPlain) {
    EXPECT_FALSE(ParseCommandLine({"--mugen", "/m", "a.def"}).plain);
}

TEST(CommandLine, HelpNeedsNothingElse) {
    EXPECT_TRUE(ParseCommandLine({"--help"}).help);
}

TEST(CommandLine, SaysWhatIsMissingOrUnknown) {
    EXPECT_EQ(ErrorOf({"a.def"}), "--mugen DIR is missing");
    EXPECT_EQ(ErrorOf({"--mugen", "/m"}), "the stage is missing");
    EXPECT_EQ(ErrorOf({"a.def", "--mugen"}), "--mugen needs an argument");
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "--zoom"}), "there is no option --zoom");
    EXPECT_EQ(ErrorOf({"--mugen", "/m", "a.def", "b.def"}), "one stage at a time: a.def or b.def");
}

}  // namespace
}  // namespace scenara
