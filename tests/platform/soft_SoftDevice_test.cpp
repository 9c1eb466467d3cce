// SPDX-License-Identifier: MIT
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/RunTimeError.h"
#include "platform/soft/SoftDevice.h"
#include "support/Raises.h"

namespace scenara {
namespace {

using test::Raises;
using testing::ThrowsMessage;

using Texture = std::shared_ptr<Direct3DTexture8>;

TextureParameters Sized(std::int32_t width, std::int32_t height) {
    TextureParameters parameters;
    parameters.width = width;
    parameters.height = height;
    return parameters;
}

TextureParameters Wishing(std::int32_t width, std::int32_t height, std::int32_t pitch,
                          std::size_t slack) {
    TextureParameters parameters = Sized(width, height);
    parameters.wantedPitch = pitch;
    parameters.wantedSlack = slack;
    return parameters;
}

TEST(TextureParameters, DefaultsAreThoseOfEverySprite) {
    const TextureParameters parameters;
    EXPECT_EQ(parameters.mipLevels, 0xFFFFFFFFU);
    EXPECT_EQ(parameters.usage, 0U);
    EXPECT_EQ(parameters.format, 0U);
    EXPECT_EQ(parameters.pool, 1U);
    EXPECT_EQ(parameters.filter, 2U);
    EXPECT_EQ(parameters.mipFilter, 2U);
    EXPECT_EQ(parameters.colorKey, 0U);
}

TEST(SoftDevice, PixelsStayAsTheyWereWritten) {
    SoftDevice device;
    const Texture first = device.CreateTexture(Sized(7, 5));
    const Texture second = device.CreateTexture(Sized(1, 1));
    const LockedPixels pixels = first->LockRect();
    for (std::size_t i = 0; i < pixels.words.size(); ++i) {
        pixels.words[i] = 0xFF000000U + static_cast<std::uint32_t>(i);
    }
    first->UnlockRect();
    second->LockRect().words[0] = 0x00112233;
    second->UnlockRect();

    const LockedPixels again = first->LockRect();
    ASSERT_EQ(again.words.size(), 35U);
    for (std::size_t i = 0; i < again.words.size(); ++i) {
        EXPECT_EQ(again.words[i], 0xFF000000U + i);
    }
    EXPECT_EQ(second->LockRect().words[0], 0x00112233U) << "alpha 0 keeps its colour";
}

struct SizeRow {
    TextureParameters asked;
    std::int32_t pitch = 0;
    std::size_t words = 0;
};

TEST(SoftDevice, GivesEverySizeFrom1To32767WithThePitchAndTheSlackThatAreWishedFor) {
    SoftDevice device;
    for (const auto& [asked, pitch, words] :
         {SizeRow{Sized(5, 3), 5, 15}, SizeRow{Wishing(5, 3, 8, 62), 8, 3 * 8 + 62},
          SizeRow{Sized(1, 1), 1, 1}, SizeRow{Sized(32767, 1), 32767, 32767},
          SizeRow{Sized(1, 32767), 1, 32767}, SizeRow{Sized(32767, 2), 32767, 65534},
          // A pitch below the width is the width.
          SizeRow{Wishing(5, 3, 1, 0), 5, 15}, SizeRow{Wishing(5, 3, 4, 0), 5, 15},
          SizeRow{Wishing(5, 3, 5, 0), 5, 15}, SizeRow{Wishing(5, 3, -1, 0), 5, 15},
          SizeRow{Wishing(5, 3, std::numeric_limits<std::int32_t>::min(), 0), 5, 15}}) {
        SCOPED_TRACE(asked.wantedPitch);
        const Texture texture = device.CreateTexture(asked);
        EXPECT_EQ(texture->Width(), asked.width);
        EXPECT_EQ(texture->Height(), asked.height);
        const LockedPixels pixels = texture->LockRect();
        EXPECT_EQ(pixels.pitch, pitch);
        ASSERT_EQ(pixels.words.size(), words);
        std::ranges::fill(pixels.words, 1U);  // all of it may be written to
    }
}

TEST(SoftDevice, RefusesOtherSizes) {
    SoftDevice device;
    constexpr std::int32_t kLeast = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t kMost = std::numeric_limits<std::int32_t>::max();
    for (const std::int32_t side : {0, -1, 32768, 65536, kMost, kLeast}) {
        SCOPED_TRACE(side);
        for (const auto& size : {Sized(side, 1), Sized(1, side), Sized(side, side)}) {
            EXPECT_THAT([&] { return device.CreateTexture(size); },
                        Raises(RunTimeErrorKind::Overflow));
        }
    }
    EXPECT_THAT([&] { return device.CreateTexture(Sized(32768, 4)); },
                ThrowsMessage<RunTimeError>("Overflow: a texture of 32768 x 4 pixels"));
}

TEST(SoftDevice, WishesBeyondTheMachineRaiseOutOfMemory) {
    SoftDevice device;
    constexpr std::size_t kMost = std::numeric_limits<std::size_t>::max();
    constexpr std::int32_t kLongest = std::numeric_limits<std::int32_t>::max();
    for (const TextureParameters& parameters :
         {Wishing(5, 3, 0, kMost), Wishing(5, 3, 0, kMost - 14), Wishing(5, 3, 0, kMost - 15),
          Wishing(5, 3, 0, kMost / 4), Wishing(32767, 32767, kLongest, 0),
          Wishing(32767, 32767, kLongest, kMost)}) {
        EXPECT_THAT([&] { return device.CreateTexture(parameters); },
                    Raises(RunTimeErrorKind::OutOfMemory))
            << parameters.wantedPitch << " x " << parameters.wantedSlack;
    }
    EXPECT_EQ(device.CreateTexture(Sized(2, 2))->LockRect().words.size(), 4U);
}

TEST(SoftDevice, ATextureMayOutliveTheDeviceAndItsMemorysOwner) {
    auto memory = std::make_shared<TextureMemory>();
    auto device = std::make_unique<SoftDevice>(memory);
    Texture texture = device->CreateTexture(Sized(100, 100));
    texture->LockRect().words[9999] = 42;

    device.reset();
    const std::weak_ptr<TextureMemory> watched = memory;
    memory.reset();
    EXPECT_FALSE(watched.expired());
    EXPECT_EQ(texture->LockRect().words[9999], 42U);
    texture->LockRect().words[0] = 1;

    texture.reset();
    EXPECT_TRUE(watched.expired()) << "the last texture takes the memory with it";
}

TEST(SoftDevice, ATextureGivesItsMemoryBackWithItsLastOwner) {
    const auto memory = std::make_shared<TextureMemory>();
    SoftDevice device(memory);
    Texture texture = device.CreateTexture(Sized(100, 100));
    const Texture other = texture;  // NOLINT(performance-unnecessary-copy-initialization)
    const std::size_t used = memory->UsedBytes();
    EXPECT_EQ(used, 40000U);
    texture.reset();
    EXPECT_EQ(memory->UsedBytes(), used);
    EXPECT_EQ(other->Width(), 100);
}

TEST(SoftDevice, TheNextDeviceFindsTheMemoryOfTheLastOne) {
    const auto memory = std::make_shared<TextureMemory>();
    std::vector<const std::uint32_t*> places;
    for (int stage = 0; stage < 3; ++stage) {
        SoftDevice device(memory);
        const Texture first = device.CreateTexture(Sized(300, 200));
        const Texture second = device.CreateTexture(Sized(30, 20));
        places.push_back(second->LockRect().words.data());
    }
    EXPECT_EQ(places[1], places[0]);
    EXPECT_EQ(places[2], places[0]);
    EXPECT_EQ(memory->UsedBytes(), 0U);
    EXPECT_GT(memory->CommittedBytes(), 0U);
}

TEST(SoftDevice, APictureThatFailedLeavesItsPlaceToTheNext) {
    const auto memory = std::make_shared<TextureMemory>();
    SoftDevice device(memory);
    const Texture kept = device.CreateTexture(Sized(10, 10));
    Texture failed = device.CreateTexture(Sized(500, 500));
    const auto* const place = failed->LockRect().words.data();
    failed.reset();
    const Texture next = device.CreateTexture(Sized(20, 20));
    EXPECT_EQ(next->LockRect().words.data(), place);
}

}  // namespace
}  // namespace scenara
