// SPDX-License-Identifier: MIT
#include "base/Path.h"

#include <string>

#include <gtest/gtest.h>

namespace scenara {
namespace {

const std::string kSeparator(1, PathSeparator);

TEST(PathSeparator, IsTheOneOfTheMachine) {
#ifdef _WIN32
    EXPECT_EQ(PathSeparator, '\\');
#else
    EXPECT_EQ(PathSeparator, '/');
#endif
}

TEST(GetPath, CutsBehindTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(GetPath("/mugen/stages/kfm.def"), "/mugen/stages/");
    EXPECT_EQ(GetPath("C:\\mugen\\stages\\kfm.def"), "C:\\mugen\\stages\\");
    EXPECT_EQ(GetPath("/mugen/stages\\kfm.def"), "/mugen/stages\\");
    EXPECT_EQ(GetPath("C:\\mugen\\stages/kfm.def"), "C:\\mugen\\stages/");
}

TEST(GetPath, IsEmptyWithoutASeparator) {
    EXPECT_EQ(GetPath("kfm.def"), "");
    EXPECT_EQ(GetPath("C:kfm.def"), "");
    EXPECT_EQ(GetPath(""), "");
}

TEST(GetPath, KeepsAFolderWhole) {
    EXPECT_EQ(GetPath("/mugen/stages/"), "/mugen/stages/");
    EXPECT_EQ(GetPath("stages\\"), "stages\\");
    EXPECT_EQ(GetPath("/"), "/");
    EXPECT_EQ(GetPath("a//b"), "a//");
}

TEST(FileName, IsWhatFollowsTheLastSeparatorOfEitherKind) {
    EXPECT_EQ(FileName("/mugen/stages/kfm.def"), "kfm.def");
    EXPECT_EQ(FileName("C:\\mugen\\kfm.def"), "kfm.def");
    EXPECT_EQ(FileName("mugen/stages\\kfm.def"), "kfm.def");
    EXPECT_EQ(FileName("mugen\\stages/kfm.def"), "kfm.def");
    EXPECT_EQ(FileName("kfm.def"), "kfm.def");
    EXPECT_EQ(FileName("stages/"), "");
    EXPECT_EQ(FileName(""), "");
}

TEST(FileName, AndGetPathMakeThePathAgain) {
    for (const std::string path : {"a/b\\c.def", "c.def", "a/", "\\", "", "//x"}) {
        EXPECT_EQ(GetPath(path).append(FileName(path)), path);
    }
}

TEST(WithSeparator, AddsTheMachinesOwnWhereNoneIs) {
    EXPECT_EQ(WithSeparator("mugen"), "mugen" + kSeparator);
    EXPECT_EQ(WithSeparator("a/b"), "a/b" + kSeparator);
    EXPECT_EQ(WithSeparator("a\\b"), "a\\b" + kSeparator);
}

TEST(WithSeparator, LeavesOneOfEitherKindAndAnEmptyFolderAlone) {
    EXPECT_EQ(WithSeparator("mugen/"), "mugen/");
    EXPECT_EQ(WithSeparator("mugen\\"), "mugen\\");
    EXPECT_EQ(WithSeparator("/"), "/");
    EXPECT_EQ(WithSeparator(""), "");
}

TEST(JoinPath, PutsOneSeparatorBetween) {
    EXPECT_EQ(JoinPath("mugen", "stages"), "mugen" + kSeparator + "stages");
    EXPECT_EQ(JoinPath("mugen/", "stages"), "mugen/stages");
    EXPECT_EQ(JoinPath("mugen\\", "stages"), "mugen\\stages");
    EXPECT_EQ(JoinPath("", "kfm.def"), "kfm.def");
    EXPECT_EQ(JoinPath("mugen", ""), "mugen" + kSeparator);
}

}  // namespace
}  // namespace scenara
