// SPDX-License-Identifier: MIT
#include "platform/Messages.h"

#include <string>

#include <gtest/gtest.h>

namespace scenara {
namespace {

class LastMessage : public Messages {
public:
    void Show(const Message& message) override {
        last = message;
        ++count;
    }

    Message last{"none", "none", "none", MessageIcon::CriticalStop};
    int count = 0;
};

TEST(Messages, AMsgBoxIsPlainAndHasTheApplicationsTitle) {
    LastMessage messages;
    const std::string text("caf\xE9\r\nline \0 two", 16);  // kept in its bytes
    messages.MsgBox("PosZero", text);
    EXPECT_EQ(messages.count, 1);
    EXPECT_EQ(messages.last.kind, "PosZero");
    EXPECT_EQ(messages.last.text, text);
    EXPECT_EQ(messages.last.title, "");
    EXPECT_EQ(messages.last.icon, MessageIcon::None);
}

TEST(Messages, OfAFileKnowFileAndLineWhereTheyDidNot) {
    LastMessage shown;
    MessagesOfFile messages(shown, "a.def");
    messages.MsgBox("Here", "");
    EXPECT_EQ(shown.last.place, (MessagePlace{0, 0, "a.def"}));
    messages.AtLine(7);
    messages.MsgBox("Here", "");
    EXPECT_EQ(shown.last.place, (MessagePlace{7, 0, "a.def"}));
    messages.MsgBox("Here", "", {3, 2});
    EXPECT_EQ(shown.last.place, (MessagePlace{3, 2, "a.def"}));
    messages.MsgBox("Here", "", {0, 0, "b.def"});
    EXPECT_EQ(shown.last.place, (MessagePlace{0, 0, "b.def"}));
}

}  // namespace
}  // namespace scenara
