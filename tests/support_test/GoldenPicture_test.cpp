// SPDX-License-Identifier: MIT
#include "support/GoldenPicture.h"

#include <array>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/posix/ProgramFolder.h"

namespace scenara::test {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;
using Pixels = std::vector<std::uint32_t>;

class GoldenPictureTest : public testing::Test {
protected:
    // Three columns, two lines.
    static Pixels Sample() {
        return {0xFF102030, 0xFF000000, 0xFFFFFFFF, 0xFF0000FF, 0xFF00FF00, 0xFFFF0000};
    }

    [[nodiscard]] testing::AssertionResult Match(const Pixels& pixels, std::int32_t width = 3,
                                                 std::int32_t height = 2) const {
        return GoldenPictures(Golden(""), Actual(""), GoldenMode::Compare)
            .Match("sample", pixels, width, height);
    }

    [[nodiscard]] testing::AssertionResult Update(const Pixels& pixels, std::int32_t width = 3,
                                                  std::int32_t height = 2) const {
        return GoldenPictures(Golden(""), Actual(""), GoldenMode::Update)
            .Match("sample", pixels, width, height);
    }

    [[nodiscard]] std::string Golden(const std::string& name) const {
        return folder_.Path() + "golden/" + name;
    }
    [[nodiscard]] std::string Actual(const std::string& name) const {
        return folder_.Path() + "actual/" + name;
    }

private:
    TemporaryFolder folder_;
};

TEST_F(GoldenPictureTest, TheSamePicturePassesWhateverItsTopBytes) {
    ASSERT_TRUE(Update(Sample()));
    EXPECT_TRUE(Match(Sample()));
    Pixels pixels = Sample();
    for (std::uint32_t& pixel : pixels) {
        pixel &= 0x7FFFFFFFU;
    }
    EXPECT_TRUE(Match(pixels));
    EXPECT_FALSE(fs::exists(Actual(""))) << "nothing to look at";
}

TEST_F(GoldenPictureTest, OneThatDiffersTellsWhereAndHowMuch) {
    ASSERT_TRUE(Update(Sample()));
    Pixels pixels = Sample();
    pixels[3] = 0xFF00000A;
    pixels[5] = 0xFF000000;
    const testing::AssertionResult result = Match(pixels);
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr("differs in 2 of 6 pixels. The first is (0, 1): "
                                            "expected 0x0000FF, got 0x00000A."));
    EXPECT_THAT(result.message(), HasSubstr("The test's picture is " + Actual("sample.png")));
    EXPECT_THAT(result.message(),
                HasSubstr("--gtest_filter=GoldenPictureTest.OneThatDiffersTellsWhereAndHowMuch "
                          "--update"));
}

TEST_F(GoldenPictureTest, OneThatDiffersIsLeftToBeLookedAt) {
    ASSERT_TRUE(Update(Sample()));
    Pixels pixels = Sample();
    pixels[1] = 0x00123456;
    EXPECT_FALSE(Match(pixels));
    const auto actual = ReadPicture(Actual("sample.png"));
    ASSERT_TRUE(actual);
    pixels[1] = 0xFF123456;
    EXPECT_EQ(actual->pixels, pixels);
    EXPECT_EQ(actual->width, 3);
    EXPECT_EQ(actual->height, 2);
    const auto differences = ReadPicture(Actual("sample-differences.png"));
    ASSERT_TRUE(differences);
    EXPECT_EQ(differences->pixels,
              (Pixels{0xFF000000, 0xFFFFFFFF, 0xFF000000, 0xFF000000, 0xFF000000, 0xFF000000}));
}

TEST_F(GoldenPictureTest, EveryChannelCounts) {
    ASSERT_TRUE(Update(Sample()));
    for (const unsigned shift : {0U, 8U, 16U}) {
        Pixels pixels = Sample();
        pixels[0] ^= 1U << shift;
        EXPECT_FALSE(Match(pixels)) << shift;
    }
}

TEST_F(GoldenPictureTest, AnotherSizeIsAnotherPicture) {
    ASSERT_TRUE(Update(Sample()));
    const testing::AssertionResult result = Match(Sample(), 2, 3);
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr("has 3 x 2 pixels, the test's picture 2 x 3."));
}

TEST_F(GoldenPictureTest, AMissingOneIsAFailureThatTellsHowToMakeIt) {
    const testing::AssertionResult result = Match(Sample());
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr("there is no picture " + Golden("sample.png")));
    EXPECT_THAT(result.message(), HasSubstr("--update"));
    EXPECT_TRUE(ReadPicture(Actual("sample.png")));
    EXPECT_FALSE(fs::exists(Golden("sample.png"))) << "made only when asked for";
}

TEST_F(GoldenPictureTest, ADamagedOneIsNone) {
    ASSERT_TRUE(Update(Sample()));
    fs::resize_file(Golden("sample.png"), fs::file_size(Golden("sample.png")) / 2);
    EXPECT_FALSE(Match(Sample()));
    ASSERT_TRUE(Update(Sample()));
    EXPECT_TRUE(Match(Sample()));
}

TEST_F(GoldenPictureTest, UpdatingWritesWhatDiffersAndNothingElse) {
    ASSERT_TRUE(Update(Sample()));
    const auto before = fs::last_write_time(Golden("sample.png")) - std::chrono::hours(1);
    fs::last_write_time(Golden("sample.png"), before);
    EXPECT_TRUE(Update(Sample()));
    EXPECT_EQ(fs::last_write_time(Golden("sample.png")), before);
    Pixels pixels = Sample();
    pixels[0] = 0xFF000001;
    EXPECT_TRUE(Update(pixels));
    EXPECT_TRUE(Match(pixels));
    EXPECT_FALSE(Match(Sample()));
}

TEST_F(GoldenPictureTest, WhatCannotBeWrittenIsAFailure) {
    // A file is in the folder's place.
    std::ofstream(Golden("").substr(0, Golden("").size() - 1)) << "in the way";
    const testing::AssertionResult result = Update(Sample());
    EXPECT_FALSE(result);
    EXPECT_THAT(result.message(), HasSubstr(Golden("sample.png")));
}

TEST_F(GoldenPictureTest, WantsAsManyPixelsAsThePictureHas) {
    ASSERT_TRUE(Update(Sample()));
    EXPECT_FALSE(Match(Sample(), 3, 3));
    EXPECT_FALSE(Match(Sample(), 3, 1));
    EXPECT_FALSE(Match({}, 0, 0));
    EXPECT_FALSE(Match(Sample(), -3, -2));
}

TEST(TakeGoldenMode, TakesTheSwitchOutOfTheArguments) {
    std::string program = "test";
    std::string update = "--update";
    std::string filter = "--gtest_filter=*";
    std::array<char*, 4> words = {program.data(), update.data(), filter.data(), nullptr};
    int count = 3;
    EXPECT_EQ(TakeGoldenMode(count, words.data()), GoldenMode::Update);
    EXPECT_EQ(count, 2);
    EXPECT_EQ(words[0], program.data());
    EXPECT_EQ(words[1], filter.data());
    EXPECT_EQ(words[2], nullptr);
    EXPECT_EQ(TakeGoldenMode(count, words.data()), GoldenMode::Compare);
    EXPECT_EQ(count, 2);
}

}  // namespace
}  // namespace scenara::test
