// SPDX-License-Identifier: MIT
#include "render/ScaledCopies.h"

#include <string>

#include <gtest/gtest.h>

namespace scenara::test {
namespace {

struct CloseCopies {
    const char* name;
    Long count;         // 1: without end
    std::int64_t step;  // of pictures of `size` pixels
    std::int64_t size;
    double scale;
};

constexpr CloseCopies kClose[] = {
    {"Touching", 1, 1, 1, 1e-3},
    {"TouchingMuchTooSmallToCount", 1, 1, 1, 1e-30},
    {"TouchingAtTheEdgeOfWhatCounts", 1, 1, 1, 1e-17},
    {"Apart", 1, 9, 2, 1e-9},
    {"UponOneAnother", 1, 1, 32, 0.3},
    {"UponOneAnotherLessThanAPixel", 1, 1, 32, 0.03},
    {"UponOneAnotherMuchTooSmallToCount", 1, 1, 32, 1e-30},
    {"CountedUponOneAnother", 32767, 1, 32, 1e-4},
    {"VeryDeep", 32767, 1, 30000, 0.7},
};

class ScaledCopiesThatAreClose : public testing::TestWithParam<CloseCopies> {};

// However many there are: no file is to make a frame take minutes.
TEST_P(ScaledCopiesThatAreClose, AreAsManyAsThereArePixels) {
    const auto& [name, count, step, size, scale] = GetParam();
    const ScaledCopies copies({count, step, size, false, true}, -17.3, scale);
    constexpr PixelRange kVisible{0, 1000};
    constexpr std::int64_t kMostDeep = 64;
    std::int64_t shown = 0;
    copies.ForEach(kVisible, kMostDeep, [&](const PixelRange& copy) {
        EXPECT_LT(copy.from, kVisible.to);
        EXPECT_GT(copy.to, kVisible.from);
        ++shown;
    });
    EXPECT_LE(shown, 2 * kVisible.to);
}

INSTANTIATE_TEST_SUITE_P(, ScaledCopiesThatAreClose, testing::ValuesIn(kClose),
                         [](const auto& row) { return std::string(row.param.name); });

}  // namespace
}  // namespace scenara::test
