// SPDX-License-Identifier: MIT
#include "scenara-shot/SizedFrames.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include <gtest/gtest.h>

namespace scenara {
namespace {

constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kWhite = 0xFFFFFFFF;
constexpr std::uint32_t kHalf = 0xFF808080;

// Columns, a black one first.
std::vector<std::uint32_t> Stripes(const CanvasSize& size) {
    std::vector<std::uint32_t> pixels;
    for (std::int32_t at = 0; at < size.width * size.height; ++at) {
        pixels.push_back(at % size.width % 2 == 0 ? kBlack : kWhite);
    }
    return pixels;
}

TEST(SizedFrames, AreAsTheyAreUnlessASizeIsAskedFor) {
    const CanvasSize size{32, 24};
    const std::vector<std::uint32_t> pixels = Stripes(size);
    const Frame frame = SizedFrames(std::nullopt, Scaling::Average).Sized({size, pixels});
    EXPECT_EQ(frame.size, size);
    EXPECT_EQ(frame.pixels.data(), pixels.data());
}

TEST(SizedFrames, AreAsLargeAsFits) {
    const CanvasSize size{32, 24};
    const std::vector<std::uint32_t> pixels = Stripes(size);
    const struct {
        CanvasSize room;
        CanvasSize sized;
    } rows[] = {
        {{32, 24}, {32, 24}}, {{64, 48}, {64, 48}}, {{67, 50}, {64, 48}}, {{48, 99}, {48, 36}},
        {{16, 16}, {16, 12}}, {{99, 6}, {8, 6}},    {{1, 1}, {1, 1}},     {{8192, 1}, {1, 1}},
    };
    for (const auto& row : rows) {
        const Frame frame = SizedFrames(row.room, Scaling::Average).Sized({size, pixels});
        EXPECT_EQ(frame.size, row.sized) << row.room.width << " x " << row.room.height;
        EXPECT_EQ(frame.pixels.size(), static_cast<std::size_t>(row.sized.width) *
                                           static_cast<std::size_t>(row.sized.height));
    }
}

TEST(SizedFrames, AreMadeOfAllOfTheFrame) {
    const CanvasSize size{32, 24};
    const std::vector<std::uint32_t> pixels = Stripes(size);
    SizedFrames smaller({{16, 12}}, Scaling::Average);
    for (const std::uint32_t pixel : smaller.Sized({size, pixels}).pixels) {
        ASSERT_EQ(pixel, kHalf);
    }
    SizedFrames sharp({{48, 36}}, Scaling::Average);
    EXPECT_EQ(sharp.Sized({size, pixels}).pixels[0], kBlack);
    EXPECT_EQ(sharp.Sized({size, pixels}).pixels[1], kHalf);
    EXPECT_EQ(sharp.Sized({size, pixels}).pixels[2], kWhite);
    SizedFrames smooth({{64, 48}}, Scaling::Smooth);
    EXPECT_EQ(smooth.Sized({size, pixels}).pixels[1], 0xFF404040U) << "a quarter";
}

}  // namespace
}  // namespace scenara
