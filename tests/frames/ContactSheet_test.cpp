// SPDX-License-Identifier: MIT
//
// All of ContactSheet.h in one golden picture, with additions and without.
#include "frames/ContactSheet.h"

#include <algorithm>
#include <cstddef>
#include <vector>

#include <gtest/gtest.h>

#include "support/GoldenPicture.h"

namespace scenara::test {
namespace {

constexpr std::size_t kAcross = 4;
constexpr std::size_t kWidth = 320;
constexpr std::size_t kHeight = 240;

std::vector<std::uint32_t> Sheet(bool additions) {
    const std::size_t rows = kSheetStages.size() / kAcross;
    std::vector<std::uint32_t> sheet(kAcross * kWidth * rows * kHeight);
    for (std::size_t i = 0; i < kSheetStages.size(); ++i) {
        PaintedStage stage(SheetDefinition(kSheetStages.at(i)), ViewOptions{additions});
        stage.Run(1);
        const std::size_t left = i % kAcross * kWidth;
        for (std::size_t y = 0; y < kHeight; ++y) {
            const std::size_t line = i / kAcross * kHeight + y;
            std::copy_n(
                stage.Picture().begin() + static_cast<std::ptrdiff_t>(y * kWidth), kWidth,
                sheet.begin() + static_cast<std::ptrdiff_t>(line * kAcross * kWidth + left));
        }
    }
    return sheet;
}

testing::AssertionResult Matches(const char* name, bool additions) {
    return MatchesGolden(name, Sheet(additions), kAcross * kWidth,
                         static_cast<std::int32_t>(kSheetStages.size() / kAcross * kHeight));
}

TEST(ContactSheet, IsThePictureThatItWas) {
    EXPECT_TRUE(Matches("sheet_on", true));
    EXPECT_TRUE(Matches("sheet_off", false));
}

}  // namespace
}  // namespace scenara::test
