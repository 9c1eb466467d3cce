// SPDX-License-Identifier: MIT
#include "app/MugenFolder.h"

#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessDialogs.h"
#include "support/MemoryFiles.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr const char* kMeant = "Use That One";
constexpr const char* kAnother = "Choose Another";
constexpr const char* kInsist = "Use It All the Same";

class MugenFolder : public testing::Test {
protected:
    MugenFolder() {
        files.Put("/mugen/stages/a.def", "camera");
        files.Put("/caps/STAGES/a.def", "camera");
        files.Put("/zip/mugen-1.0/stages/a.def", "camera");
        files.Put("/zip/docs/readme.txt", "");
        files.Put("/many/one/stages/a.def", "camera");
        files.Put("/many/two/stages/a.def", "camera");
        files.Put("/none/file", "");
        files.Put("/stages/stages/a.def", "camera");
    }

    // The user's answers, in order; then every question is cancelled.
    [[nodiscard]] std::string Ask(const std::vector<std::string>& answers) {
        return Ask(answers, dialogs);
    }
    [[nodiscard]] std::string Ask(const std::vector<std::string>& answers, HeadlessDialogs& user) {
        for (const std::string& answer : answers) {
            user.Answer(answer);
        }
        return AskForMugenFolder(files, user, "/begin", [this] { return ended; });
    }

    MemoryFiles files;
    HeadlessDialogs dialogs;
    bool ended = false;
};

TEST_F(MugenFolder, HasAFolderOfStagesInAnyCase) {
    for (const char* const folder : {"/mugen", "/mugen/", "/caps"}) {
        EXPECT_TRUE(HasStages(files, folder)) << folder;
    }
    for (const char* const folder : {"/none", "/mugen/stages", "/zip", "/gone"}) {
        EXPECT_FALSE(HasStages(files, folder)) << folder;
    }
}

TEST_F(MugenFolder, OfOneWithoutStagesTheMeantOneIsFound) {
    const struct {
        const char* folder;
        const char* meant;
    } rows[] = {
        {"/mugen/stages", "/mugen"},
        {"/mugen/stages/", "/mugen"},
        {"/caps/STAGES", "/caps"},
        {"/stages", "/"},
        {"/many", ""},
        {"/none", ""},
        {"/gone", ""},
        {"/zip", "/zip/mugen-1.0"},
        {"/", ""},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(FolderMeant(files, row.folder), row.meant) << row.folder;
    }
}

TEST_F(MugenFolder, IsAskedForUntilTheUserIsContent) {
    const struct {
        const char* name;
        std::vector<std::string> answers;
        const char* folder;
        std::size_t questions;
    } rows[] = {
        {"one with stages", {"/mugen"}, "/mugen", 1},
        {"cancelled", {""}, "", 1},
        {"the folder stages itself", {"/mugen/stages", kMeant}, "/mugen", 2},
        {"the one above it", {"/zip", kMeant}, "/zip/mugen-1.0", 2},
        {"insisted", {"/none", kInsist}, "/none", 2},
        {"insisted though another is meant", {"/zip", kInsist}, "/zip", 2},
        {"another", {"/none", kAnother, "/mugen"}, "/mugen", 3},
        {"another, and cancelled", {"/none", kAnother, ""}, "", 3},
        {"cancelled when asked about it", {"/none", ""}, "", 2},
        {"nothing is meant", {"/none", kMeant}, "", 2},
        {"what follows a zero byte is cut off", {std::string("/mugen\0x", 8)}, "/mugen", 1},
    };
    for (const auto& row : rows) {
        HeadlessDialogs user;
        EXPECT_EQ(Ask(row.answers, user), row.folder) << row.name;
        EXPECT_EQ(user.Asked().size(), row.questions) << row.name;
    }
}

TEST_F(MugenFolder, BeginsWhereItIsToldAndThenWhereTheUserWas) {
    EXPECT_EQ(Ask({"/zip", kAnother, "/mugen"}), "/mugen");
    ASSERT_EQ(dialogs.Asked().size(), 3U);
    EXPECT_EQ(dialogs.Asked()[0].initialFolder, "/begin");
    EXPECT_THAT(dialogs.Asked()[1].text, HasSubstr("/zip\r\nhas no folder \"stages\""));
    EXPECT_THAT(dialogs.Asked()[1].text, HasSubstr("Perhaps you mean\r\n/zip/mugen-1.0"));
    EXPECT_EQ(dialogs.Asked()[2].initialFolder, "/zip");
}

TEST_F(MugenFolder, IsNotSuggestedWhereNoneIsMeant) {
    EXPECT_EQ(Ask({"/many"}), "");
    EXPECT_THAT(dialogs.Asked().at(1).text, Not(HasSubstr("Perhaps")));
}

TEST_F(MugenFolder, IsNotAskedForOnceTheProgramIsToEnd) {
    dialogs.Observe([&](const DialogQuestion&) { ended = true; });
    EXPECT_EQ(Ask({"/none", kAnother, "/mugen"}), "");
    EXPECT_EQ(dialogs.Asked().size(), 2U);
    EXPECT_EQ(Ask({"/mugen"}), "");
    EXPECT_EQ(dialogs.Asked().size(), 2U);
}

}  // namespace
}  // namespace scenara::test
