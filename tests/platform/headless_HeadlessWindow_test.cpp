// SPDX-License-Identifier: MIT
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/headless/HeadlessWindow.h"
#include "support/RecordedEvents.h"

namespace scenara {
namespace {

TEST(HeadlessWindow, RecordsEveryCaptionOldestFirst) {
    HeadlessWindow window;
    EXPECT_TRUE(window.Captions().empty());
    window.SetCaption("Loading");
    window.SetCaption("Loading");
    window.SetCaption("");
    EXPECT_EQ(window.Captions(), (std::vector<std::string>{"Loading", "Loading", ""}));
}

TEST(HeadlessWindow, RunsItsScriptInEachDoEvents) {
    std::vector<std::size_t> counts;
    HeadlessWindow window([&](HeadlessWindow& self) {
        counts.push_back(self.DoEventsCount());
        self.SetCaption("seen");
    });
    EXPECT_EQ(window.DoEventsCount(), 0U);
    window.DoEvents();
    window.DoEvents();
    EXPECT_EQ(counts, (std::vector<std::size_t>{1, 2}));
    EXPECT_EQ(window.Captions().size(), 2U);
}

TEST(HeadlessWindow, CountsDoEventsWithoutAScriptAndHowOftenItIsShown) {
    HeadlessWindow window;
    EXPECT_EQ(window.ShowCount(), 0U);
    for (int time = 0; time < 2; ++time) {
        window.DoEvents();
        window.Show();
    }
    EXPECT_EQ(window.DoEventsCount(), 2U);
    EXPECT_EQ(window.ShowCount(), 2U);
}

TEST(HeadlessWindow, EndsWhenItIsClosedAndStaysSo) {
    HeadlessWindow window([](HeadlessWindow& self) {
        if (self.DoEventsCount() == 2) {
            self.RequestEnd();
        }
    });
    window.DoEvents();
    EXPECT_FALSE(window.EndRequested());
    window.DoEvents();
    EXPECT_TRUE(window.EndRequested());
    window.DoEvents();
    EXPECT_TRUE(window.EndRequested());
}

TEST(HeadlessWindow, StandsWhereItIsMovedTo) {
    HeadlessWindow window;
    EXPECT_EQ(window.Place().left, 0);
    EXPECT_EQ(window.Place().top, 0);
    EXPECT_EQ(window.Place().width, 320 * 15);
    EXPECT_EQ(window.Place().height, 240 * 15);
    window.MoveTo({150, -300, 9600, 7200});
    EXPECT_EQ(window.Place().left, 150);
    EXPECT_EQ(window.Place().top, -300);
    EXPECT_EQ(window.Place().width, 9600);
    EXPECT_EQ(window.Place().height, 7200);
}

// A size is a wish until the pump has brought an answer.
TEST(HeadlessWindow, ReportsTheSizeThatCameFromItsPump) {
    test::RecordedEvents program;
    HeadlessWindow window;
    window.SetEvents(&program);
    window.SetMessageWaiting(false);
    window.SetFrame({10, 50});
    window.Size(400, 300);
    window.Size(500, 200);
    EXPECT_EQ(program.Text(), "");
    EXPECT_EQ(program.width, -1);
    EXPECT_EQ(window.Place().width, (320 + 10) * 15);
    EXPECT_TRUE(window.MessageWaiting());
    window.DoEvents();
    EXPECT_EQ(program.width, 500);
    EXPECT_EQ(program.height, 200);
    EXPECT_EQ(window.Place().width, (500 + 10) * 15);
    EXPECT_EQ(window.Place().height, (200 + 50) * 15);
    EXPECT_FALSE(window.MessageWaiting());
    EXPECT_EQ(window.Wishes().size(), 2U);

    window.Maximise();
    window.DoEvents();
    EXPECT_EQ(program.width, 1024 - 10);
    program.width = 0;
    window.Size(320, 240);
    window.MoveTo(1500, 1500);
    window.DoEvents();
    EXPECT_EQ(program.width, 1024 - 10) << "the one that it has already";
    EXPECT_EQ(window.Place().left, 0);
}

TEST(HeadlessWindow, IsInFrontAtFirstAndNotItsPicture) {
    EXPECT_EQ(HeadlessWindow().Handle(), HeadlessWindow().Foreground());
    EXPECT_NE(HeadlessWindow().Handle(), HeadlessWindow().PictureHandle());
    EXPECT_NE(HeadlessWindow().PictureHandle(), 0U);
}

}  // namespace
}  // namespace scenara
