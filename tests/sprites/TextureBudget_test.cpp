// SPDX-License-Identifier: MIT
#include "sprites/TextureBudget.h"

#include <limits>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "HugeTextures.h"
#include "base/RunTimeError.h"
#include "support/Raises.h"

namespace scenara::test {
namespace {

TextureParameters Sized(std::int32_t width, std::int32_t height, std::int32_t pitch = 0) {
    TextureParameters parameters;
    parameters.width = width;
    parameters.height = height;
    parameters.wantedPitch = pitch;
    return parameters;
}

class Budget : public testing::Test {
protected:
    // Whether there is room for a texture, which is then kept.
    bool Take(std::int32_t width, std::int32_t height, std::int32_t pitch = 0) {
        try {
            static_cast<void>(budget.CreateTexture(Sized(width, height, pitch)));
        } catch (const RunTimeError& error) {
            EXPECT_EQ(error.Kind(), RunTimeErrorKind::OutOfMemory);
            EXPECT_TRUE(budget.IsFull());
            return false;
        }
        EXPECT_FALSE(budget.IsFull());
        return true;
    }

    OneLineDevice device;
    TextureBudget budget{device};
};

TEST_F(Budget, HasRoomForAllUpToTheSum) {
    for (int i = 0; i < 2047; ++i) {
        ASSERT_TRUE(Take(512, 512)) << i;  // a megabyte
    }
    EXPECT_FALSE(Take(1, 1));
}

TEST_F(Budget, WhatDoesNotFitLeavesTheRoomForWhatDoes) {
    EXPECT_TRUE(Take(16384, 16384));
    EXPECT_FALSE(Take(16384, 16384));
    EXPECT_TRUE(Take(16384, 16384 - 16));
    EXPECT_FALSE(Take(1, 1));
}

TEST_F(Budget, OneTextureMayBeAllOfItAndNotMore) {
    EXPECT_FALSE(Take(32767, 32767));
    EXPECT_FALSE(Take(16384, 32752 + 1));
    EXPECT_TRUE(Take(16384, 32752));
}

TEST_F(Budget, LinesCountAsLongAsIsWishedFor) {
    EXPECT_TRUE(Take(1, 16384, 16384));
    EXPECT_FALSE(Take(1, 16384, 16384));
    EXPECT_TRUE(Take(1, 16384, 1));
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    EXPECT_FALSE(Take(kMost, kMost, kMost));
}

TEST_F(Budget, WhatIsGivenBackCountsForNothing) {
    for (int i = 0; i < 10; ++i) {
        static_cast<void>(budget.CreateTexture(Sized(16384, 16384)));
        EXPECT_EQ(budget.Taken(), std::uint64_t{1} << 30U);
        budget.GiveBack(budget.Taken());
    }
    EXPECT_TRUE(Take(16384, 16384));
    EXPECT_THAT([&] { return budget.CreateTexture(Sized(16384, 16384)); },
                Raises(RunTimeErrorKind::OutOfMemory));
}

TEST(TexturesOfAnArchive, BeyondTheSumAreDroppedOnAnyDevice) {
    constexpr std::size_t kFit = TextureBudget::kMostBytes / kColumnBytes;
    OneLineDevice device;
    ArchiveLoad load;
    const std::vector<std::byte> archive = ArchiveOfColumns(kFit + 3);
    load.file = std::make_unique<MemoryFile>(std::span(archive));
    LoadSprites(load.model, {*load.file, load.name, device, load.messages, load.options},
                load.window);
    EXPECT_EQ(load.model.Sprites.size(), kFit);
    std::vector<std::string> said;
    for (std::size_t i = 0; i < 3; ++i) {
        said.push_back("An ERROR has occurred!!\r\nLoadPCX\r\nHandleError: Out of memory");
        said.push_back("PCX Error:  Group 0 Image " + std::to_string(kFit + i) +
                       "\r\nSkipping sprite..");
    }
    EXPECT_EQ(load.Texts(), said);
}

}  // namespace
}  // namespace scenara::test
