// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/headless/HeadlessMessages.h"

namespace scenara {
namespace {

TEST(HeadlessMessages, RecordsEverythingOldestFirst) {
    HeadlessMessages messages;
    EXPECT_TRUE(messages.Recorded().empty());
    messages.MsgBox("First", "one");
    messages.Show({"Second", "two", "Title", MessageIcon::Exclamation});
    messages.MsgBox("First", "one");

    ASSERT_EQ(messages.Recorded().size(), 3U);
    EXPECT_EQ(messages.Recorded()[0].kind, "First");
    EXPECT_EQ(messages.Recorded()[0].text, "one");
    EXPECT_EQ(messages.Recorded()[1].kind, "Second");
    EXPECT_EQ(messages.Recorded()[1].title, "Title");
    EXPECT_EQ(messages.Recorded()[1].icon, MessageIcon::Exclamation);
    EXPECT_EQ(messages.Recorded()[2].text, "one") << "a repetition is a message like any other";
}

TEST(HeadlessMessages, HandsEachOnAtOnce) {
    std::vector<std::string> seen;
    HeadlessMessages messages([&](const Message& message) { seen.push_back(message.text); });
    messages.MsgBox("Kind", "one");
    EXPECT_EQ(seen, (std::vector<std::string>{"one"}));
    messages.MsgBox("Kind", "two");
    EXPECT_EQ(seen, (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(messages.Recorded().size(), 2U);
}

TEST(HeadlessMessages, HasRecordedAMessageBeforeItsObserverActs) {
    const HeadlessMessages* self = nullptr;
    std::size_t recordedThen = 0;
    HeadlessMessages messages([&](const Message&) { recordedThen = self->Recorded().size(); });
    self = &messages;
    messages.MsgBox("Kind", "one");
    EXPECT_EQ(recordedThen, 1U);
}

}  // namespace
}  // namespace scenara
