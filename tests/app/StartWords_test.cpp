// SPDX-License-Identifier: MIT
#include "app/StartWords.h"

#include <stdexcept>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/Version.h"

namespace scenara::test {
namespace {

using testing::HasSubstr;

using Words = std::vector<std::string>;

// The paths, each in brackets; or the sentence about what is wrong.
std::string Read(const Words& words) {
    try {
        std::string text;
        for (const std::string& path : StartPaths(words)) {
            text += "[" + path + "]";
        }
        return text;
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
}

TEST(StartPaths, AreTheWordsThatAreNoOptions) {
    const struct {
        Words words;
        const char* read;
    } rows[] = {
        {{}, ""},
        {{"a.def"}, "[a.def]"},
        {{"b.def", "/m", "a.def"}, "[b.def][/m][a.def]"},
        {{"", "a.def", ""}, "[a.def]"},
        {{" "}, "[ ]"},
        {{"\xFF\n=.def"}, "[\xFF\n=.def]"},
        {{"--", "--help", "-a.def"}, "[--help][-a.def]"},
        {{"a.def", "--", "--"}, "[a.def][--]"},
        {{"--"}, ""},
        {{"--bogus"}, "there is no option --bogus"},
        {{"a.def", "-x"}, "there is no option -x"},
        {{"-"}, "there is no option -"},
        {{"--help=1"}, "there is no option --help=1"},
        {{"--HELP"}, "there is no option --HELP"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(Read(row.words), row.read);
    }
}

TEST(AnswerInstead, IsTheHelpOrTheVersionThatComesFirst) {
    const std::string version = VersionLine();
    const struct {
        Words words;
        std::string answer;
    } rows[] = {
        {{"--help"}, StartUsage()},
        {{"--version"}, version},
        {{"--version", "--help"}, version},
        {{"a.def", "--bogus", "--help"}, StartUsage()},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(AnswerInstead(row.words), row.answer);
    }
    for (const Words& words : {Words{}, Words{"a.def"}, Words{"--bogus"}, Words{"--", "--help"}}) {
        EXPECT_FALSE(AnswerInstead(words));
    }
}

TEST(AnswerInstead, TellsTheNameAndTheWholeVersion) {
    EXPECT_THAT(VersionLine(), testing::MatchesRegex("Scenara [0-9]+\\.[0-9]+\\.[0-9]+\n"));
    for (const char* const option : {"--help", "--version", "FILE.def", "FOLDER"}) {
        EXPECT_THAT(StartUsage(), HasSubstr(option));
    }
}

}  // namespace
}  // namespace scenara::test
