// SPDX-License-Identifier: MIT
#include "app/RecentFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

using testing::ElementsAre;

Form Opened(const std::vector<std::string>& paths) {
    Form form;
    form[Menu::MnuRecentFiles].visible = false;
    for (const std::string& path : paths) {
        RememberRecentFile(form, path);
    }
    return form;
}

TEST(RecentFiles, TheFirstOneShowsTheSeparator) {
    EXPECT_FALSE(Opened({}).operator[](Menu::MnuRecentFiles).visible);
    const Form form = Opened({"/a.def"});
    EXPECT_TRUE(form[Menu::MnuRecentFiles].visible);
    EXPECT_THAT(form.recentFiles, ElementsAre("/a.def"));
}

TEST(RecentFiles, TheNewestStandsFirst) {
    EXPECT_THAT(Opened({"a", "b", "c"}).recentFiles, ElementsAre("c", "b", "a"));
}

TEST(RecentFiles, ASeventhDropsTheOldest) {
    EXPECT_THAT(Opened({"a", "b", "c", "d", "e", "f"}).recentFiles,
                ElementsAre("f", "e", "d", "c", "b", "a"));
    EXPECT_THAT(Opened({"a", "b", "c", "d", "e", "f", "g"}).recentFiles,
                ElementsAre("g", "f", "e", "d", "c", "b"));
}

TEST(RecentFiles, OneThatIsThereMovesToTheTop) {
    EXPECT_THAT(Opened({"a", "b", "c", "b"}).recentFiles, ElementsAre("b", "c", "a"));
    EXPECT_THAT(Opened({"a", "b", "c", "a"}).recentFiles, ElementsAre("a", "c", "b"));
    EXPECT_THAT(Opened({"a", "b", "b"}).recentFiles, ElementsAre("b", "a"));
    EXPECT_THAT(Opened({"a", "b", "c", "d", "e", "f", "a"}).recentFiles,
                ElementsAre("a", "f", "e", "d", "c", "b"))
        << "and nothing is dropped";
}

TEST(RecentFiles, LetterCaseTellsThemApart) {
    EXPECT_THAT(Opened({"/A.def", "/a.def"}).recentFiles, ElementsAre("/a.def", "/A.def"));
}

TEST(RecentFiles, APathOfTheListItselfCanBeOpened) {
    Form form = Opened({"a", "b", "c"});
    RememberRecentFile(form, form.recentFiles[2]);
    EXPECT_THAT(form.recentFiles, ElementsAre("a", "c", "b"));
}

TEST(RecentFiles, AMenuThatIsLongerStaysAsLong) {
    Form form;
    for (const char* path : {"1", "2", "3", "4", "5", "6", "7", "8", "9"}) {
        AppendRecentFile(form, path);
    }
    RememberRecentFile(form, "new");
    EXPECT_THAT(form.recentFiles, ElementsAre("new", "1", "2", "3", "4", "5", "6", "7", "8"));
    RememberRecentFile(form, "8");
    EXPECT_THAT(form.recentFiles, ElementsAre("8", "new", "1", "2", "3", "4", "5", "6", "7"));
}

TEST(RecentFiles, TheChosenOneMovesToTheTop) {
    Form form = Opened({"a", "b", "c", "d"});
    EXPECT_EQ(RaiseRecentFile(form, 3), "b");
    EXPECT_THAT(form.recentFiles, ElementsAre("b", "d", "c", "a"));
    EXPECT_EQ(RaiseRecentFile(form, 1), "b");
    EXPECT_THAT(form.recentFiles, ElementsAre("b", "d", "c", "a"));
    EXPECT_EQ(RaiseRecentFile(form, 4), "a");
    EXPECT_THAT(form.recentFiles, ElementsAre("a", "b", "d", "c"));
}

TEST(RecentFiles, NoneIsChosenThatIsNotThere) {
    Form form = Opened({"a"});
    EXPECT_THROW(RaiseRecentFile(form, 0), RunTimeError);
    EXPECT_THROW(RaiseRecentFile(form, 2), RunTimeError);
    EXPECT_THAT(form.recentFiles, ElementsAre("a"));
}

TEST(RecentFiles, AppendingKeepsTheOrder) {
    Form form;
    form[Menu::MnuRecentFiles].visible = false;
    AppendRecentFile(form, "a");
    AppendRecentFile(form, "b");
    AppendRecentFile(form, "a");
    EXPECT_TRUE(form[Menu::MnuRecentFiles].visible);
    EXPECT_THAT(form.recentFiles, ElementsAre("a", "b", "a"));
}

}  // namespace
}  // namespace scenara
