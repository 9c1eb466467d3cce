// SPDX-License-Identifier: MIT
//
// The character that comes with the program, from the disk.
#include <cstddef>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "character/CharacterColors.h"
#include "character/CharacterMachine.h"
#include "platform/posix/PosixFiles.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SubfilePalette.h"

namespace scenara::test {
namespace {

using testing::IsEmpty;

const std::string kFolder = SCENARA_BUNDLED_DATA "/chars/lanternkeeper/";

class BundledCharacter : public testing::TestWithParam<bool> {
protected:
    BundledCharacter() {
        loaded_ = LoadCharacter(kFolder + "lanternkeeper.def", character_,
                                {files_, messages_, device_, view_, {}});
    }

    PosixFiles files_{""};
    HeadlessMessages messages_;
    RecordingDevice device_;
    ViewOptions view_{GetParam()};
    TestCharacter character_;
    bool loaded_ = false;
};

TEST_P(BundledCharacter, LoadsWithoutAWord) {
    EXPECT_TRUE(loaded_);
    EXPECT_THAT(messages_.Recorded(), IsEmpty());
    EXPECT_EQ(character_.DisplayName, "Lantern Keeper");
    EXPECT_EQ(character_.WalkSpeed, 1.5F);
    EXPECT_TRUE(character_.HasTurn);
    EXPECT_EQ(character_.ActionIn(kStanding).frames.size(), 4U);
    EXPECT_EQ(character_.ActionIn(kTurning).frames.size(), 2U);
    EXPECT_EQ(character_.ActionIn(kWalking).frames.size(), 8U);
    EXPECT_EQ(character_.Sprites.size(), 12U);
}

TEST_P(BundledCharacter, StandsOnItsAxisInEveryPicture) {
    for (const CharAction& action : character_.Actions) {
        for (const CharFrame& frame : action.frames) {
            ASSERT_GE(frame.texture, 0);
            const CharSprite& sprite =
                character_.Sprites.at(static_cast<std::size_t>(frame.texture));
            const Words pixels = PixelsOf(*sprite.texture);
            const auto width = static_cast<std::size_t>(sprite.texture->Width());
            std::size_t lowest = 0;
            for (std::size_t i = 0; i < pixels.size(); ++i) {
                lowest = pixels[i] >> 24U != 0 ? i / width : lowest;
            }
            // The soles, and the line around them.
            EXPECT_EQ(lowest, static_cast<std::size_t>(sprite.axisY) + 1) << frame.image;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, BundledCharacter, testing::Bool(), [](const auto& row) {
    return std::string(row.param ? "Additions" : "Plain");
});

TEST(BundledCharacterColours, OfTheFirstCoatAreThoseOfThePictures) {
    PosixFiles files("");
    const auto first = ReadActPalette(files, kFolder + "lanternkeeper1.act");
    const auto second = ReadActPalette(files, kFolder + "lanternkeeper2.act");
    ASSERT_TRUE(first);
    ASSERT_TRUE(second);
    const auto archive = files.OpenForReading(kFolder + "lanternkeeper.sff");
    const SffHeader header = ReadSffHeader(*archive);
    SubfileChain chain(*archive, header);
    ASSERT_TRUE(chain.Next());
    PaletteBytes inArchive{};
    EXPECT_TRUE(ReadSubfilePalette(*archive, chain.Current(), true, inArchive));
    EXPECT_EQ(*first, inArchive);
    EXPECT_NE(*second, inArchive);
}

}  // namespace
}  // namespace scenara::test
