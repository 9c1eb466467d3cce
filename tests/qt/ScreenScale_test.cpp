// SPDX-License-Identifier: MIT
//
// Screens with a scale of their own, also one that is no whole number: every pixel of the screen
// where the picture is shown is the picture's, or black.
#include <QBackingStore>
#include <QImage>
#include <QWidget>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Direct3D8.h"
#include "platform/Form.h"
#include "platform/qt/MainWindow.h"
#include "platform/qt/PictureWidget.h"
#include "platform/soft/CanvasScaler.h"
#include "qt/Toolkit.h"

namespace scenara::test {
namespace {

constexpr std::uint32_t kUnpainted = 0xFFFF00FF;
constexpr std::uint32_t kBlack = 0xFF000000;

std::uint32_t ViewPixel(int x, int y) {
    return kBlack | static_cast<std::uint32_t>((x + 1) << 8U | (y + 1));
}

std::vector<std::uint32_t> Pixels() {
    std::vector<std::uint32_t> view;
    for (int y = 0; y < View().height; ++y) {
        for (int x = 0; x < View().width; ++x) {
            view.push_back(ViewPixel(x, y));
        }
    }
    return view;
}

class ScreenScale : public Toolkit, public testing::WithParamInterface<double> {
protected:
    ScreenScale() : Toolkit(GetParam()) {
        window.resize(1200, 900);
        BringUp(window);
    }

    // The screen's pixels of the window, those that are not painted by `paint` in one colour.
    template <typename Paint>
    QImage Painted(const Paint& paint) {
        const auto screen = [this]() -> QImage& {
            return dynamic_cast<QImage&>(*window.backingStore()->paintDevice());
        };
        screen().fill(kUnpainted);
        paint();
        return screen().copy();
    }

    // Where a length of the window's ends on the screen.
    [[nodiscard]] static int OnScreen(int length) {
        return static_cast<int>(std::lround(length * GetParam()));
    }

    // The area in the window, in the screen's pixels.
    void Place(const QRect& area) {
        picture.setGeometry(area);
        Settle();
        onScreen = QRect(QPoint(OnScreen(area.left()), OnScreen(area.top())),
                         QPoint(OnScreen(area.left() + area.width()) - 1,
                                OnScreen(area.top() + area.height()) - 1));
    }

    // Nothing of it is left out, and nothing beside it is painted.
    void ExpectPainted(const QImage& screen) const {
        int unpainted = 0;
        int beside = 0;
        for (int y = 0; y < screen.height(); ++y) {
            const auto* const line =
                reinterpret_cast<const std::uint32_t*>(screen.constScanLine(y));
            for (int x = 0; x < screen.width(); ++x) {
                const bool painted = line[x] != kUnpainted;
                unpainted += onScreen.contains(x, y) && !painted ? 1 : 0;
                beside += !onScreen.contains(x, y) && painted ? 1 : 0;
            }
        }
        EXPECT_EQ(unpainted, 0);
        EXPECT_EQ(beside, 0);
    }

    [[nodiscard]] static QPoint CornerOfView(const QImage& screen) {
        for (int y = 0; y < screen.height(); ++y) {
            for (int x = 0; x < screen.width(); ++x) {
                if (screen.pixel(x, y) == ViewPixel(0, 0)) {
                    return {x, y};
                }
            }
        }
        return {-1, -1};
    }

    // The view in the middle with each of its pixels `times` wide and high, black around it. One
    // line of its last ones may be missing.
    void ExpectView(const QImage& screen, int times) const {
        const QSize size(times * View().width, times * View().height);
        const QPoint corner = CornerOfView(screen);
        ASSERT_NEAR(corner.x() - onScreen.left(), (onScreen.width() - size.width()) / 2, 1);
        ASSERT_NEAR(corner.y() - onScreen.top(), (onScreen.height() - size.height()) / 2, 1);
        EXPECT_LE(size.width(), onScreen.width() + 1);
        EXPECT_LE(size.height(), onScreen.height() + 1);
        for (int y = onScreen.top(); y <= onScreen.bottom(); ++y) {
            for (int x = onScreen.left(); x <= onScreen.right(); ++x) {
                const QPoint at = QPoint(x, y) - corner;
                const bool within = QRect(QPoint(), size).contains(at);
                ASSERT_EQ(screen.pixel(x, y),
                          within ? ViewPixel(at.x() / times, at.y() / times) : kBlack)
                    << x << ", " << y;
            }
        }
    }

    // In `part` the screen shows what the view is at the size that fits the area.
    void ExpectScaled(const QImage& screen, const QRect& part) const {
        const PictureFit fit =
            PictureFit::In(onScreen.width(), onScreen.height(), CanvasSize(), ShownSizes::Any);
        QImage expected(onScreen.size(), QImage::Format_RGB32);
        expected.fill(Qt::black);
        auto* const corner =
            reinterpret_cast<std::uint32_t*>(expected.scanLine(fit.top)) + fit.left;
        soft::CanvasScaler().Draw(CanvasSize(), Pixels(), Scaling::Average,
                                  {corner, expected.bytesPerLine() / 4, fit.width, fit.height});
        for (int y = part.top(); y <= part.bottom(); ++y) {
            for (int x = part.left(); x <= part.right(); ++x) {
                const QPoint at = QPoint(x, y) - onScreen.topLeft();
                ASSERT_EQ(screen.pixel(x, y), expected.pixel(at)) << x << ", " << y;
            }
        }
    }

    QWidget window;
    PictureWidget picture{&window};
    QRect onScreen;
};

TEST_P(ScreenScale, EveryPixelOfTheAreaIsPainted) {
    picture.show();
    const std::vector<std::uint32_t> view = Pixels();
    for (const QRect area :
         {QRect(0, 0, 320, 240), QRect(0, 21, 320, 240), QRect(0, 23, 321, 243),
          QRect(7, 19, 640, 480), QRect(0, 21, 733, 551), QRect(3, 5, 100, 77)}) {
        SCOPED_TRACE(testing::Message() << area.x() << " " << area.y() << " " << area.width());
        Place(area);
        ExpectPainted(Painted([&] { picture.Show(CanvasSize(), view); }));
        ExpectPainted(Painted([&] { picture.ShowOwn(3, 2, std::span(view).first(6)); }));
        ExpectPainted(Painted([&] { picture.ShowOwn(0, 0, {}); }));
        picture.EndOwn();
        picture.SetSelection(ViewFrame{0, 0, 20, 30});
        ExpectPainted(Painted([&] { picture.Show(CanvasSize(), view); }));
        picture.SetSelection(std::nullopt);
    }
}

// Every pixel of the area is one of them.
TEST_P(ScreenScale, WhatFillsTheAreaStandsOnThePixelsOfTheScreen) {
    picture.show();
    for (const QRect area : {QRect(0, 0, 320, 240), QRect(0, 21, 321, 243), QRect(7, 19, 533, 307),
                             QRect(3, 5, 100, 77)}) {
        SCOPED_TRACE(testing::Message() << area.x() << " " << area.y() << " " << area.width());
        Place(area);
        const QSize size = PictureWidget::SizeOnScreen(area, GetParam());
        ASSERT_EQ(size, onScreen.size());
        std::vector<std::uint32_t> pixels;
        for (int i = 0; i < size.width() * size.height(); ++i) {
            pixels.push_back(0xFF000000 | static_cast<std::uint32_t>(i * 7919));
        }
        const QImage screen =
            Painted([&] { picture.Fill(size.width(), size.height(), pixels, {}); });
        ExpectPainted(screen);
        for (int y = 0; y < size.height(); ++y) {
            for (int x = 0; x < size.width(); ++x) {
                ASSERT_EQ(screen.pixel(onScreen.topLeft() + QPoint(x, y)),
                          pixels[static_cast<std::size_t>(y * size.width() + x)])
                    << x << ", " << y;
            }
        }
        picture.EndOwn();
    }
}

TEST_P(ScreenScale, TheViewIsShownAtItsLargestWholeMultiple) {
    picture.show();
    const std::vector<std::uint32_t> view = Pixels();
    for (const int times : {1, 2, 3}) {
        SCOPED_TRACE(times);
        // What a screen of just that size is in the window's pixels.
        Place({0, 0, static_cast<int>(std::lround(times * View().width / GetParam())),
               static_cast<int>(std::lround(times * View().height / GetParam()))});
        ExpectView(Painted([&] { picture.Show(CanvasSize(), view); }), times);
        Place({13, 21, static_cast<int>(std::ceil((times + 0.5) * View().width / GetParam())),
               static_cast<int>(std::ceil((times + 0.5) * View().height / GetParam()))});
        ExpectView(Painted([&] { picture.Show(CanvasSize(), view); }), times);
    }
}

// All pixels of the area: those of the view at the size that fits, black around it.
TEST_P(ScreenScale, TheViewIsShownAtTheLargestSizeThatFits) {
    picture.show();
    const std::vector<std::uint32_t> view = Pixels();
    picture.SetPresentation({ShownSizes::Any, Scaling::Average});
    for (const QRect area : {QRect(0, 0, 440, 300), QRect(7, 19, 533, 307), QRect(3, 5, 100, 77)}) {
        SCOPED_TRACE(area.width());
        Place(area);
        const QImage screen = Painted([&] { picture.Show(CanvasSize(), view); });
        ExpectPainted(screen);
        ExpectScaled(screen, onScreen);
    }
}

TEST_P(ScreenScale, APartOfTheViewIsThatPart) {
    picture.show();
    picture.SetPresentation({ShownSizes::Any, Scaling::Average});
    Place({13, 21, 600, 360});
    picture.Show(CanvasSize(), Pixels());
    const QRect part(100, 90, 200, 150);
    const QImage screen = Painted([&] { picture.repaint(part); });
    // One pixel less, where the part ends within one.
    ExpectScaled(screen,
                 QRect(onScreen.topLeft() + QPoint(OnScreen(part.left()), OnScreen(part.top())),
                       QSize(OnScreen(part.width()), OnScreen(part.height())))
                     .adjusted(1, 1, -1, -1));
    EXPECT_EQ(screen.pixel(onScreen.left() + 3, onScreen.center().y()), kUnpainted);
}

// The main window as it comes up has hardly anything around the picture, which is not smaller than
// it would be without a scale.
TEST_P(ScreenScale, TheWindowHasRoomForTheViewWithNothingAroundIt) {
    const Form form;
    const InnerSize room = MainWindow(form).RoomFor(CanvasSize());
    picture.show();
    Place({0, 21, room.width, room.height});
    const int times = static_cast<int>(std::ceil(GetParam()));
    ExpectView(Painted([&] { picture.Show(CanvasSize(), Pixels()); }), times);
    EXPECT_NEAR(onScreen.width(), times * View().width, 2);
    EXPECT_NEAR(onScreen.height(), times * View().height, 2);
}

INSTANTIATE_TEST_SUITE_P(Scales, ScreenScale, testing::Values(1, 1.25, 1.354, 1.5, 1.75, 2),
                         [](const auto& scale) {
                             return std::to_string(std::lround(scale.param * 1000));
                         });

}  // namespace
}  // namespace scenara::test
