// SPDX-License-Identifier: MIT
#include "platform/qt/WindowSight.h"

#include <QWidget>
#include <memory>

#include "platform/qt/PictureWidget.h"
#include "qt/ShownWindow.h"
#include "qt/Toolkit.h"

namespace scenara::test {
namespace {

class Sight : public Toolkit {
protected:
    Sight() {
        BringUp(widget);
        sight.Watch(widget.windowHandle());
    }

    QWidget widget;
    WindowSight sight;
};

TEST_F(Sight, IsOfAWindowThatIsThere) {
    EXPECT_TRUE(sight.IsSeen());
    widget.hide();
    Settle();
    EXPECT_FALSE(sight.IsSeen());
    BringUp(widget);
    EXPECT_TRUE(sight.IsSeen());
}

TEST_F(Sight, IsNotOfOneThatIsMinimised) {
    widget.showMinimized();
    Settle();
    EXPECT_FALSE(sight.IsSeen());
    widget.showNormal();
    Settle();
    EXPECT_TRUE(sight.IsSeen());
}

TEST_F(Sight, WithoutAWindowNothingTellsOtherwise) {
    EXPECT_TRUE(WindowSight().IsSeen());
    auto other = std::make_unique<QWidget>();
    other->show();
    sight.Watch(other->windowHandle());
    other->hide();
    EXPECT_FALSE(sight.IsSeen());
    other.reset();
    EXPECT_TRUE(sight.IsSeen()) << "it is gone";
    sight.Watch(nullptr);
    EXPECT_TRUE(sight.IsSeen());
}

class SeenWindow : public ShownWindow {};

TEST_F(SeenWindow, IsTheMainWindowOrWhatCoversIt) {
    EXPECT_TRUE(window.IsSeen());
    QWidget covering;
    PictureWidget picture(&covering);
    covering.show();
    window.CoverBy(&picture);
    window.hide();
    Settle();
    EXPECT_TRUE(window.IsSeen());
    covering.hide();
    Settle();
    EXPECT_FALSE(window.IsSeen());
    window.CoverBy(nullptr);
    EXPECT_FALSE(window.IsSeen());
    window.Show();
    Pump();
    EXPECT_TRUE(window.IsSeen());
}

TEST_F(SeenWindow, DoesNotSleepOverWhatHasBeenTakenIn) {
    constexpr std::int64_t kHour = 3600LL * 1'000'000'000;
    window.NoteKey(VirtualKey::Q);
    window.SleepUntilMessage(kHour);
    EXPECT_TRUE(window.MessageWaiting());
    window.DoEvents();
    window.NoteEvents();
    window.SleepUntilMessage(kHour);
    EXPECT_TRUE(window.MessageWaiting());
}

}  // namespace
}  // namespace scenara::test
