// SPDX-License-Identifier: MIT
#include "platform/qt/ProgramIcon.h"

#include <QColor>
#include <QImage>
#include <QSize>
#include <algorithm>
#include <cmath>

#include <gtest/gtest.h>

#include "qt/Toolkit.h"

namespace scenara::test {
namespace {

class ProgramIconTest : public Toolkit {};

QList<QSize> InOrder(QList<QSize> sizes) {
    std::ranges::sort(sizes, {}, &QSize::width);
    return sizes;
}

TEST_F(ProgramIconTest, IsThereInAllItsSizes) {
    const QList<QSize> sizes = InOrder(ProgramIcon().availableSizes());
    EXPECT_EQ(
        sizes,
        (QList<QSize>{{16, 16}, {24, 24}, {32, 32}, {48, 48}, {64, 64}, {128, 128}, {256, 256}}));
    for (const QSize& size : sizes) {
        EXPECT_EQ(ProgramIcon().pixmap(size).size(), size);
    }
}

// Of the smallest one, too: sky, sun, hills and floor differ, and its corners show what is under
// it.
TEST_F(ProgramIconTest, IsReadableAtEachSize) {
    for (const QSize& size : ProgramIcon().availableSizes()) {
        const QImage image = ProgramIcon().pixmap(size).toImage();
        const auto lightness = [&](double x, double y) {
            return image
                .pixelColor(static_cast<int>(x * size.width()), static_cast<int>(y * size.height()))
                .lightness();
        };
        const int sun = lightness(0.64, 0.38);
        const int hill = lightness(0.25, 0.64);
        const int floor = lightness(0.45, 0.72);
        EXPECT_GT(sun, lightness(0.5, 0.12) + 60) << size.width() << ": the sun before the sky";
        EXPECT_GT(floor, hill + 60) << size.width() << ": the floor below the hills";
        EXPECT_LT(image.pixelColor(0, 0).alpha(), 128) << size.width() << ": the corner";
    }
}

}  // namespace
}  // namespace scenara::test
