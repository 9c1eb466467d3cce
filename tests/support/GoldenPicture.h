// SPDX-License-Identifier: MIT
//
// Golden pictures: what a test draws is compared with a PNG file that somebody has looked at and
// found right.
//
//   EXPECT_TRUE(MatchesGolden("lanternpier", pixels));
//
// compares with tests/golden/lanternpier.png, red, green and blue of every pixel. A failure tells
// the first pixel that differs and how many do, and leaves NAME.png and NAME-differences.png (white
// where they differ) in the build's folder golden/. Run with --update, a test program (with
// GoldenMain.cpp) writes the golden files instead, those that differ; its tests then pass with a
// note. Look at the pictures before committing them.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "platform/Direct3D8.h"
#include "platform/View.h"

namespace scenara::test {

// ARGB words, line by line.
struct Picture {
    std::vector<std::uint32_t> pixels;
    std::int32_t width = 0;
    std::int32_t height = 0;
};

// A picture from a PNG file; none when it cannot be read.
[[nodiscard]] std::optional<Picture> ReadPicture(const std::string& path);

enum class GoldenMode { Compare, Update };

class GoldenPictures {
public:
    // Golden pictures are in one folder, what tests leave goes to the other, which is made.
    GoldenPictures(std::string goldenFolder, std::string actualFolder, GoldenMode mode);

    // The top bytes of `pixels`, line by line, are nobody's.
    [[nodiscard]] testing::AssertionResult Match(const std::string& name,
                                                 std::span<const std::uint32_t> pixels,
                                                 std::int32_t width, std::int32_t height) const;

private:
    [[nodiscard]] testing::AssertionResult Compare(const std::string& name, const Picture& actual,
                                                   const std::optional<Picture>& golden) const;
    [[nodiscard]] testing::AssertionResult Update(const std::string& name, const Picture& actual,
                                                  const std::optional<Picture>& golden) const;

    std::string goldenFolder_;
    std::string actualFolder_;
    GoldenMode mode_;
};

// The same with the folders of the source tree and the build.
[[nodiscard]] testing::AssertionResult MatchesGolden(const std::string& name,
                                                     std::span<const std::uint32_t> pixels,
                                                     std::int32_t width = View().width,
                                                     std::int32_t height = View().height);

// Which of the two MatchesGolden does from now on. At first it compares.
void SetGoldenMode(GoldenMode mode);

// Takes --update out of a program's arguments.
[[nodiscard]] GoldenMode TakeGoldenMode(int& argc, char** argv);

}  // namespace scenara::test
