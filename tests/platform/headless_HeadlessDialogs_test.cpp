// SPDX-License-Identifier: MIT
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/HeadlessDialogs.h"

namespace scenara {
namespace {

using testing::ElementsAre;

TEST(HeadlessDialogs, AnswersInOrderAndThenCancels) {
    HeadlessDialogs dialogs;
    dialogs.Answer("/mugen");
    dialogs.Answer("");
    dialogs.Answer("30");
    EXPECT_EQ(dialogs.BrowseForFolder("where?", "/home"), "/mugen");
    EXPECT_EQ(dialogs.OpenFile("Choose!", "/mugen/stages/"), "");
    EXPECT_EQ(dialogs.InputBox("Max FPS?"), "30");
    EXPECT_EQ(dialogs.InputBox("Max FPS?"), "");
    using Kind = DialogQuestion::Kind;
    EXPECT_THAT(dialogs.Asked(),
                ElementsAre(DialogQuestion{Kind::BrowseForFolder, "where?", "/home"},
                            DialogQuestion{Kind::OpenFile, "Choose!", "/mugen/stages/"},
                            DialogQuestion{Kind::InputBox, "Max FPS?", ""},
                            DialogQuestion{Kind::InputBox, "Max FPS?", ""}));
}

TEST(HeadlessDialogs, LetsATestActWhileOneIsOpen) {
    HeadlessDialogs dialogs;
    dialogs.Observe([&](const DialogQuestion& question) { dialogs.Answer(question.text + "!"); });
    EXPECT_EQ(dialogs.InputBox("a"), "a!");
}

}  // namespace
}  // namespace scenara
