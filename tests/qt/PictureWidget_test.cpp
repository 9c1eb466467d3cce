// SPDX-License-Identifier: MIT
//
// What stands on the screen's own pixels, and what the pointer is told to be over.
#include "platform/qt/PictureWidget.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QWheelEvent>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "qt/Toolkit.h"

namespace scenara::test {
namespace {

constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kGreen = 0xFF00FF00;
constexpr std::uint32_t kBlue = 0xFF0000FF;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kBlack = 0xFF000000;

// Three columns and two rows.
const std::vector<std::uint32_t> kSprite = {kRed,  kGreen, kBlue,  //
                                            kBlue, kWhite, kRed};

class Picture : public Toolkit {
protected:
    explicit Picture(int scale = 1) : Toolkit(scale) {
        widget.SetMouseObserver([this](PictureWidget::Mouse what, std::int32_t x, std::int32_t y) {
            const char* const name = what == PictureWidget::Mouse::Down   ? "down "
                                     : what == PictureWidget::Mouse::Move ? "move "
                                                                          : "up ";
            told += name + std::to_string(x) + " " + std::to_string(y) + "; ";
        });
        widget.resize(320, 240);
        BringUp(widget);
    }

    // In the screen's own pixels.
    QImage Seen() { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }

    // The sprite in its corner with each of its pixels `times` wide and high, black around it.
    void ExpectSprite(int times) {
        const QImage seen = Seen();
        ASSERT_EQ(seen.width(), 320 * times);
        ASSERT_EQ(seen.height(), 240 * times);
        for (int y = 0; y < seen.height(); ++y) {
            for (int x = 0; x < seen.width(); ++x) {
                const bool within = x < 3 * times && y < 2 * times;
                const auto at = static_cast<std::size_t>(y / times * 3 + x / times);
                ASSERT_EQ(seen.pixel(x, y), within ? kSprite[at] : kBlack) << x << ", " << y;
            }
        }
    }

    PictureWidget widget{nullptr};
    std::string told;
};

TEST_F(Picture, OfItsOwnIsShownOneToOneUntilItEnds) {
    widget.ShowOwn(3, 2, kSprite);
    ExpectSprite(1);
    widget.EndOwn();
    EXPECT_EQ(Seen().pixel(0, 0), kBlack);
}

TEST_F(Picture, OfItsOwnWithoutAnyPixelIsBlack) {
    widget.ShowOwn(0, 0, {});
    EXPECT_EQ(Seen().pixel(0, 0), kBlack);
}

TEST_F(Picture, ThatFillsTheBoxIsPointedAtByItsOwnPixels) {
    widget.SetPresentation({ShownSizes::WholeMultiples, Scaling::Nearest});
    widget.resize(640, 480);
    const std::vector<std::uint32_t> pixels(std::size_t{640} * 480, kGreen);
    widget.Fill(640, 480, pixels, {});
    EXPECT_EQ(Seen().pixel(639, 479), kGreen);
    SendMouse(widget, QEvent::MouseButtonPress, {600, 434}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(told, "down 600 434; ");
    widget.EndOwn();
    told.clear();
    SendMouse(widget, QEvent::MouseButtonPress, {600, 434}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_NE(told, "down 600 434; ") << "of the view";
}

TEST_F(Picture, ThatFillsTheBoxHasItsTextInTheMiddle) {
    const std::vector<std::uint32_t> pixels(std::size_t{320} * 240, kBlack);
    const auto bright = [&] {
        const QImage seen = Seen();
        int count = 0;
        for (int y = 100; y < 140; ++y) {
            for (int x = 0; x < 320; ++x) {
                count += seen.pixel(x, y) != kBlack ? 1 : 0;
            }
        }
        return count;
    };
    widget.Fill(320, 240, pixels, QStringLiteral("No sprites"));
    EXPECT_GT(bright(), 50);
    widget.Fill(320, 240, pixels, {});
    EXPECT_EQ(bright(), 0);
}

TEST_F(Picture, ThatFillsTheBoxTellsOfTheWheelWithItsPlace) {
    std::string turned;
    widget.SetWheelObserver([&](int notches, std::int32_t x, std::int32_t y) {
        turned +=
            std::to_string(notches) + " at " + std::to_string(x) + " " + std::to_string(y) + "; ";
    });
    const auto turn = [&](int by) {
        QWheelEvent event(QPointF(30, 40), widget.mapToGlobal(QPointF(30, 40)), {}, {0, by},
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
    };
    turn(120);
    EXPECT_EQ(turned, "") << "the view's is for others";
    widget.Fill(320, 240, std::vector<std::uint32_t>(std::size_t{320} * 240, kBlack), {});
    turn(120);
    turn(60);
    turn(60);
    turn(-360);
    EXPECT_EQ(turned, "1 at 30 40; 1 at 30 40; -3 at 30 40; ");
}

TEST_F(Picture, TellsOfTheLeftButtonAndThePointer) {
    SendMouse(widget, QEvent::MouseButtonPress, {12, 34}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseMove, {-3, 250}, Qt::NoButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseButtonRelease, {5, 6}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(told, "down 12 34; move -3 250; up 5 6; ");
}

TEST_F(Picture, TellsNothingOfOtherButtons) {
    SendMouse(widget, QEvent::MouseButtonPress, {12, 34}, Qt::RightButton, Qt::RightButton);
    SendMouse(widget, QEvent::MouseButtonRelease, {12, 34}, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(told, "");
}

TEST_F(Picture, AMoveWithoutTheLeftButtonIsARelease) {
    SendMouse(widget, QEvent::MouseButtonPress, {12, 34}, Qt::LeftButton, Qt::LeftButton);
    // It was let go over a box. The right one is down now.
    SendMouse(widget, QEvent::MouseMove, {20, 40}, Qt::NoButton, Qt::RightButton);
    EXPECT_EQ(told, "down 12 34; up 20 40; ");
}

TEST_F(Picture, TellsOfTheWheelWithCtrlByWholeNotches) {
    widget.SetZoomObserver([this](bool in) { told += in ? "in; " : "out; "; });
    const auto turn = [this](int by, Qt::KeyboardModifiers with) {
        QWheelEvent event({5, 6}, widget.mapToGlobal(QPointF(5, 6)), {}, {0, by}, Qt::NoButton,
                          with, Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    };
    EXPECT_TRUE(turn(120, Qt::ControlModifier));
    EXPECT_TRUE(turn(-240, Qt::ControlModifier));
    EXPECT_EQ(told, "in; out; out; ");
    told.clear();
    // As a touchpad does it.
    for (int i = 0; i < 8; ++i) {
        turn(i < 5 ? 30 : -30, Qt::ControlModifier);
    }
    EXPECT_EQ(told, "in; ");
    told.clear();
    EXPECT_FALSE(turn(120, Qt::NoModifier)) << "is somebody else's";
    EXPECT_EQ(told, "");
}

class PictureByHand : public Picture {
protected:
    PictureByHand() {
        using Hand = PictureWidget::Hand;
        widget.SetHandObserver([this](Hand what, std::int32_t x, std::int32_t y) {
            const char* const name = what == Hand::Twice        ? "twice "
                                     : what == Hand::MiddleDown ? "take "
                                     : what == Hand::MiddleMove ? "pull "
                                                                : "leave ";
            told += name + std::to_string(x) + " " + std::to_string(y) + "; ";
        });
        widget.SetScrollObserver([this](int across, int down) {
            told += "roll " + std::to_string(across) + " " + std::to_string(down) + "; ";
        });
        widget.SetZoomObserver([this](bool in) { told += in ? "in; " : "out; "; });
    }
    void FillBox() {
        widget.Fill(320, 240, std::vector<std::uint32_t>(std::size_t{320} * 240, kBlack), {});
    }
    std::string Turned(const QPoint& by, Qt::KeyboardModifiers with = Qt::NoModifier) {
        told.clear();
        QWheelEvent event({5, 6}, widget.mapToGlobal(QPointF(5, 6)), {}, by, Qt::NoButton, with,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&widget, &event);
        return told;
    }
};

TEST_F(PictureByHand, TellsOfTheWheelToTheRightAndDown) {
    EXPECT_EQ(Turned({0, 120}), "roll 0 -1; ") << "forwards is up";
    EXPECT_EQ(Turned({0, -240}), "roll 0 2; ");
    EXPECT_EQ(Turned({0, 120}, Qt::ShiftModifier), "roll -1 0; ");
    EXPECT_EQ(Turned({0, -120}, Qt::ShiftModifier), "roll 1 0; ");
    EXPECT_EQ(Turned({-120, 0}), "roll 1 0; ") << "a touchpad's, sideways";
    EXPECT_EQ(Turned({120, -120}), "roll -1 1; ");
    // By parts of a notch.
    EXPECT_EQ(Turned({50, 0}) + Turned({50, 0}) + Turned({50, 0}), "roll -1 0; ");
    EXPECT_EQ(Turned({0, 90}), "");
    EXPECT_EQ(Turned({0, 90}, Qt::ControlModifier), "") << "what has not come to a notch is lost";
    EXPECT_EQ(Turned({0, 30}, Qt::ControlModifier), "in; ");
    FillBox();
    EXPECT_EQ(Turned({0, 120}), "") << "it is for what fills the box";
}

TEST_F(PictureByHand, TellsOfTheMiddleButtonWhileItIsDown) {
    SendMouse(widget, QEvent::MouseMove, {1, 1}, Qt::NoButton, Qt::MiddleButton);
    told.clear();  // no press was heard of
    SendMouse(widget, QEvent::MouseButtonPress, {12, 34}, Qt::MiddleButton, Qt::MiddleButton);
    SendMouse(widget, QEvent::MouseMove, {-3, 250}, Qt::NoButton, Qt::MiddleButton);
    SendMouse(widget, QEvent::MouseButtonRelease, {5, 6}, Qt::MiddleButton, Qt::NoButton);
    SendMouse(widget, QEvent::MouseButtonRelease, {5, 6}, Qt::MiddleButton, Qt::NoButton);
    EXPECT_EQ(told, "take 12 34; pull -3 250; leave 5 6; ");
    told.clear();
    SendMouse(widget, QEvent::MouseButtonPress, {12, 34}, Qt::MiddleButton, Qt::MiddleButton);
    SendMouse(widget, QEvent::MouseMove, {8, 9}, Qt::NoButton, Qt::RightButton);
    SendMouse(widget, QEvent::MouseMove, {9, 9}, Qt::NoButton, Qt::RightButton);
    EXPECT_EQ(told, "take 12 34; leave 8 9; ") << "it was let go elsewhere";
    told.clear();
    FillBox();
    SendMouse(widget, QEvent::MouseButtonPress, {12, 34}, Qt::MiddleButton, Qt::MiddleButton);
    EXPECT_EQ(told, "");
}

TEST_F(PictureByHand, TellsOfADoubleClickAfterItsPress) {
    SendMouse(widget, QEvent::MouseButtonDblClick, {12, 34}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(told, "down 12 34; twice 12 34; ");
    told.clear();
    SendMouse(widget, QEvent::MouseButtonDblClick, {12, 34}, Qt::RightButton, Qt::RightButton);
    EXPECT_EQ(told, "");
    FillBox();
    SendMouse(widget, QEvent::MouseButtonDblClick, {12, 34}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(told, "down 12 34; ");
}

TEST_F(Picture, ThatStandsIsShownInAnotherWayAtOnce) {
    widget.resize(480, 360);
    std::vector<std::uint32_t> view(320U * 240U, kBlack);
    view[0] = kWhite;
    view[1] = kWhite;
    widget.Show(CanvasSize(), view);
    EXPECT_EQ(Seen().pixel(0, 0), kBlack) << "around it";
    EXPECT_EQ(Seen().pixel(80, 60), kWhite);
    widget.SetPresentation({ShownSizes::Any, Scaling::Average});
    EXPECT_EQ(Seen().pixel(0, 0), kWhite);
    EXPECT_EQ(Seen().pixel(2, 1), 0xFF808080U) << "half of it, and half of the next row";
    EXPECT_EQ(Seen().pixel(3, 1), kBlack);
    widget.SetPresentation({ShownSizes::Any, Scaling::Smooth});
    EXPECT_EQ(Seen().pixel(3, 1), 0xFF151515U) << "a twelfth";
    widget.SetPresentation({});
    EXPECT_EQ(Seen().pixel(81, 60), kWhite);
    EXPECT_EQ(Seen().pixel(82, 60), kBlack);
}

TEST_F(Picture, PointsAtWhatIsUnderThePointerAtAnySize) {
    widget.SetPresentation({ShownSizes::Any, Scaling::Average});
    widget.resize(480, 400);  // 20 above 480 x 360
    widget.Show(CanvasSize(), std::vector<std::uint32_t>(320U * 240U, kGreen));
    SendMouse(widget, QEvent::MouseButtonPress, {2, 23}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseButtonRelease, {479, 379}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(told, "down 1 2; up 319 239; ");
}

TEST_F(Picture, OfASecondWindowIsTakenOverAsItIsShown) {
    PictureWidget other(nullptr);
    other.resize(480, 360);
    other.SetPresentation({ShownSizes::Any, Scaling::Average});
    other.Show(CanvasSize(), std::vector<std::uint32_t>(320U * 240U, kGreen));
    widget.resize(480, 360);
    widget.TakeOver(other);
    EXPECT_EQ(Seen().pixel(0, 0), kGreen);
}

// Two of the screen's pixels to one of the toolkit's.
class FinePicture : public Picture {
protected:
    FinePicture() : Picture(2) {}
};

TEST_F(FinePicture, OfItsOwnHasItsShareOfTheWindow) {
    ASSERT_EQ(widget.devicePixelRatioF(), 2);
    widget.ShowOwn(3, 2, kSprite);
    ExpectSprite(2);
}

TEST_F(FinePicture, OfTheViewIsStretchedToo) {
    std::vector<std::uint32_t> view(320U * 240U, kGreen);
    view[0] = kRed;
    view.back() = kBlue;
    widget.Show(CanvasSize(), view);
    const QImage seen = Seen();
    EXPECT_EQ(seen.pixel(0, 0), kRed);
    EXPECT_EQ(seen.pixel(1, 1), kRed);
    EXPECT_EQ(seen.pixel(2, 1), kGreen);
    EXPECT_EQ(seen.pixel(637, 478), kGreen);
    EXPECT_EQ(seen.pixel(638, 478), kBlue);
    EXPECT_EQ(seen.pixel(639, 479), kBlue);
}

TEST_F(FinePicture, PointsAtWhatIsUnderThePointer) {
    SendMouse(widget, QEvent::MouseButtonPress, {12, 34}, Qt::LeftButton, Qt::LeftButton);
    SendMouse(widget, QEvent::MouseMove, {12.5, 34.5}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(told, "down 12 34; move 12 34; ");
}

}  // namespace
}  // namespace scenara::test
