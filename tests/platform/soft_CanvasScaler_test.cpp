// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <random>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "platform/soft/CanvasScaler.h"
#include "support/AllocationCount.h"

namespace scenara::soft {
namespace {

constexpr std::uint32_t kBeside = 0x12345678;
constexpr std::int32_t kBesideRow = 3;  // pixels that are not drawn to

struct Picture {
    CanvasSize size;
    std::vector<std::uint32_t> pixels;

    [[nodiscard]] std::uint32_t At(std::int32_t x, std::int32_t y) const {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width) +
                      static_cast<std::size_t>(x)];
    }
    // Beyond the edge it goes on as it ends.
    [[nodiscard]] std::int64_t Channel(std::int64_t x, std::int64_t y, unsigned channel) const {
        const std::uint32_t pixel =
            At(static_cast<std::int32_t>(std::clamp<std::int64_t>(x, 0, size.width - 1)),
               static_cast<std::int32_t>(std::clamp<std::int64_t>(y, 0, size.height - 1)));
        return pixel >> (channel * 8) & 0xFFU;
    }
};

std::size_t Count(const CanvasSize& size) {
    return static_cast<std::size_t>(size.width) * static_cast<std::size_t>(size.height);
}

// Mostly very different neighbours, sometimes alike.
Picture Noise(const CanvasSize& size, std::mt19937& random) {
    Picture picture{size, std::vector<std::uint32_t>(Count(size))};
    for (std::uint32_t& pixel : picture.pixels) {
        const auto kind = random() % 4;
        pixel = kind == 0 ? 0U : kind == 1 ? 0xFFFFFFFFU : static_cast<std::uint32_t>(random());
    }
    return picture;
}

// Into rows that have something beside them, which stays.
Picture Scaled(CanvasScaler& scaler, const Picture& canvas, Scaling scaling,
               const CanvasSize& shown) {
    const auto pitch = static_cast<std::size_t>(shown.width + kBesideRow);
    std::vector<std::uint32_t> room(pitch * static_cast<std::size_t>(shown.height), kBeside);
    scaler.Draw(canvas.size, canvas.pixels, scaling,
                {room.data(), static_cast<std::ptrdiff_t>(pitch), shown.width, shown.height});
    Picture picture{shown, {}};
    for (std::size_t at = 0; at < room.size(); ++at) {
        if (at % pitch < static_cast<std::size_t>(shown.width)) {
            picture.pixels.push_back(room[at]);
        } else if (room[at] != kBeside) {
            ADD_FAILURE() << "pixel beside row " << at / pitch;
        }
    }
    return picture;
}

// How much of pixel `of` lies under pixel `at`, of `all`.
std::int64_t Overlap(std::int64_t at, std::int64_t of, std::int64_t size, std::int64_t all) {
    return std::max<std::int64_t>(
        std::min((at + 1) * all, (of + 1) * size) - std::max(at * all, of * size), 0);
}

// A value times `scale`.
struct Exact {
    std::int64_t value;
    std::int64_t scale;
};

Exact Mean(const Picture& canvas, const CanvasSize& shown, std::int32_t x, std::int32_t y,
           unsigned channel) {
    const CanvasSize& size = canvas.size;
    std::int64_t sum = 0;
    for (std::int64_t row = std::int64_t{y} * size.height / shown.height; row < size.height;
         ++row) {
        const std::int64_t rows = Overlap(y, row, shown.height, size.height);
        if (rows == 0) {
            break;
        }
        for (std::int64_t column = std::int64_t{x} * size.width / shown.width; column < size.width;
             ++column) {
            const std::int64_t columns = Overlap(x, column, shown.width, size.width);
            if (columns == 0) {
                break;
            }
            sum += rows * columns * canvas.Channel(column, row, channel);
        }
    }
    return {sum, std::int64_t{size.width} * size.height};
}

// Of the four pixels whose centres are around that of this one.
Exact Bilinear(const Picture& canvas, const CanvasSize& shown, std::int32_t x, std::int32_t y,
               unsigned channel) {
    const std::int64_t unitX = std::int64_t{shown.width} * 2;
    const std::int64_t unitY = std::int64_t{shown.height} * 2;
    // From half a pixel before the canvas, so that nothing is below 0.
    const std::int64_t fromX = (std::int64_t{x} * 2 + 1) * canvas.size.width + shown.width;
    const std::int64_t fromY = (std::int64_t{y} * 2 + 1) * canvas.size.height + shown.height;
    const std::int64_t left = fromX / unitX - 1;
    const std::int64_t top = fromY / unitY - 1;
    const std::int64_t right = fromX % unitX;
    const std::int64_t bottom = fromY % unitY;
    const auto at = [&](std::int64_t dx, std::int64_t dy) {
        return canvas.Channel(left + dx, top + dy, channel);
    };
    return {(at(0, 0) * (unitX - right) + at(1, 0) * right) * (unitY - bottom) +
                (at(0, 1) * (unitX - right) + at(1, 1) * right) * bottom,
            unitX * unitY};
}

bool IsAbout(const Exact& exact, std::uint32_t pixel, unsigned channel) {
    const std::int64_t shown = pixel >> (channel * 8) & 0xFFU;
    return std::abs(shown * exact.scale - exact.value) * 100 <= exact.scale * 52;
}

bool IsAsItShouldBe(const Picture& canvas, Scaling scaling, const Picture& shown, std::int32_t x,
                    std::int32_t y) {
    const CanvasSize& from = canvas.size;
    const CanvasSize& size = shown.size;
    if (scaling == Scaling::Nearest) {
        return shown.At(x, y) == canvas.At((2 * x + 1) * from.width / size.width / 2,
                                           (2 * y + 1) * from.height / size.height / 2);
    }
    const bool larger = size.width >= from.width && size.height >= from.height;
    const auto exact = scaling == Scaling::Smooth && larger ? Bilinear : Mean;
    for (unsigned channel = 0; channel < 4; ++channel) {
        if (!IsAbout(exact(canvas, size, x, y, channel), shown.At(x, y), channel)) {
            return false;
        }
    }
    return true;
}

void ExpectAs(const Picture& canvas, Scaling scaling, const Picture& shown) {
    for (std::int32_t y = 0; y < shown.size.height; ++y) {
        for (std::int32_t x = 0; x < shown.size.width; ++x) {
            ASSERT_TRUE(IsAsItShouldBe(canvas, scaling, shown, x, y)) << x << ", " << y;
        }
    }
}

class CanvasScalerTest : public testing::TestWithParam<Scaling> {
protected:
    // The same by every path, and right.
    void Check(const CanvasSize& size, const CanvasSize& shown) {
        SCOPED_TRACE(testing::Message() << size.width << " x " << size.height << " as "
                                        << shown.width << " x " << shown.height);
        const Picture canvas = Noise(size, random);
        const Picture picture = Scaled(scaler, canvas, GetParam(), shown);
        ExpectAs(canvas, GetParam(), picture);
        EXPECT_EQ(Scaled(plain, canvas, GetParam(), shown).pixels, picture.pixels);
    }

    std::mt19937 random{7};
    CanvasScaler scaler;
    CanvasScaler plain{RowPath::Plain};
};

TEST_P(CanvasScalerTest, IsWhatLiesUnderEachPixel) {
    const auto length = [this](std::uint32_t most) {
        return 1 + static_cast<std::int32_t>(random() % most);
    };
    for (int round = 0; round < 40 && !HasFatalFailure(); ++round) {
        const CanvasSize size{length(50), length(40)};
        Check(size, {length(90), length(60)});
        Check(size, {size.width + length(40), size.height + length(40)});
        Check(size, size);
    }
}

TEST_P(CanvasScalerTest, IsWhatLiesUnderEachPixelOfRealSizes) {
    Check(CanvasSize(), CanvasSize());
    Check({320, 12}, {1440, 54});
    Check({427, 12}, {1919, 53});
    Check({1280, 6}, {1920, 9});
    Check({1280, 6}, {1281, 7});
    Check({1920, 12}, {1280, 8});
    Check({1920, 12}, {1919, 11});
    Check({8, 8}, {9, 9});
    Check({7, 3}, {100, 50});
    Check({1, 1}, {20, 30});
    Check({300, 200}, {1, 1});
}

TEST_P(CanvasScalerTest, OneColourStaysThatColour) {
    for (const std::uint32_t colour : {0U, 0xFFFFFFFFU, 0xFF010203U, 0x80FEFD7FU}) {
        const CanvasSize size{37, 29};
        const Picture canvas{size, std::vector<std::uint32_t>(Count(size), colour)};
        for (const CanvasSize& shown : {CanvasSize{37, 29}, {41, 33}, {100, 100}, {9, 7}, {1, 1}}) {
            EXPECT_EQ(Scaled(scaler, canvas, GetParam(), shown).pixels,
                      std::vector<std::uint32_t>(Count(shown), colour));
        }
    }
}

TEST_P(CanvasScalerTest, WhatCannotBeDrawnLeavesAllAsItIs) {
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    const CanvasSize good{4, 3};
    const std::vector<std::uint32_t> canvas(Count(good));
    std::vector<std::uint32_t> room(Count(good), kBeside);
    const std::pair<CanvasSize, CanvasSize> sizes[] = {
        {{0, 3}, good},         {{4, -1}, good},    {{5, 3}, good},  {{4, 4}, good},
        {{kMost, kMost}, good}, {good, {0, 3}},     {good, {4, -3}}, {good, {kMost, 1}},
        {good, {1, kMost}},     {{70000, 1}, good},
    };
    for (const auto& [size, shown] : sizes) {
        scaler.Draw(size, canvas, GetParam(), {room.data(), 4, shown.width, shown.height});
        EXPECT_EQ(room, std::vector<std::uint32_t>(Count(good), kBeside));
    }
}

TEST_P(CanvasScalerTest, TakesMemoryOnlyForAnotherSize) {
    const Picture canvas = Noise({64, 48}, random);
    for (const CanvasSize& shown : {CanvasSize{96, 72}, {40, 30}, {128, 96}}) {
        std::vector<std::uint32_t> room(Count(shown));
        const ScaledPixels into{room.data(), shown.width, shown.width, shown.height};
        scaler.Draw(canvas.size, canvas.pixels, GetParam(), into);
        const std::size_t before = test::AllocationCount();
        scaler.Draw(canvas.size, canvas.pixels, GetParam(), into);
        EXPECT_EQ(test::AllocationCount(), before);
    }
}

const char* NameOf(const testing::TestParamInfo<Scaling>& scaling) {
    constexpr const char* kNames[] = {"Nearest", "Average", "Smooth"};
    return kNames[static_cast<std::size_t>(scaling.param)];
}

INSTANTIATE_TEST_SUITE_P(All, CanvasScalerTest,
                         testing::Values(Scaling::Nearest, Scaling::Average, Scaling::Smooth),
                         NameOf);

TEST(CanvasScaler, WholeMultiplesAreCopies) {
    std::mt19937 random(11);
    CanvasScaler scaler;
    for (std::int32_t times = 1; times < 9; ++times) {
        const Picture canvas = Noise({33, 5}, random);
        for (const Scaling scaling : {Scaling::Nearest, Scaling::Average}) {
            const Picture shown = Scaled(scaler, canvas, scaling, {33 * times, 5 * times});
            for (std::int32_t y = 0; y < shown.size.height; ++y) {
                for (std::int32_t x = 0; x < shown.size.width; ++x) {
                    ASSERT_EQ(shown.At(x, y), canvas.At(x / times, y / times));
                }
            }
        }
    }
}

}  // namespace
}  // namespace scenara::soft
