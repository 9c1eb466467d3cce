// SPDX-License-Identifier: MIT
//
// Random archives of version 2, of which the table of pictures is known before they are written.
#include "RandomSff2.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "support/Rounds.h"

namespace scenara::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::uint32_t KeyOf(const SpriteEntry& entry) {
    return std::uint32_t{entry.keyAlpha} << 24U | std::uint32_t{entry.keyRed} << 16U |
           std::uint32_t{entry.keyGreen} << 8U | entry.keyBlue;
}

void ExpectEntries(const RandomSff2& random, const ArchiveLoad& load) {
    // A stage whose one picture has no pixels is dark, and that is said.
    if (random.archive.sprites.size() == 1 && random.entries.empty()) {
        ASSERT_THAT(load.Kinds(), ElementsAre(kMessageOnlyImage));
    } else {
        ASSERT_THAT(load.Texts(), IsEmpty());
    }
    ASSERT_EQ(load.model.Sprites.size(), random.entries.size());
    for (std::size_t i = 0; i < random.entries.size(); ++i) {
        SCOPED_TRACE("entry " + std::to_string(i));
        const RandomSff2Entry& wanted = random.entries[i];
        const SpriteEntry& entry = load.Sprite(i);
        ASSERT_EQ(entry.group, wanted.group);
        ASSERT_EQ(entry.image, wanted.image);
        ASSERT_EQ(entry.axisX, wanted.axisX);
        ASSERT_EQ(entry.axisY, wanted.axisY);
        ASSERT_EQ(entry.width, wanted.width);
        ASSERT_EQ(entry.height, wanted.height);
        ASSERT_EQ(entry.linkedTo, wanted.linkedTo);
        ASSERT_EQ(entry.trueColor, wanted.trueColor ? 1 : 0);
        ASSERT_EQ(KeyOf(entry), wanted.key);
        ASSERT_EQ(load.Pixels(i), wanted.pixels);
        if (wanted.linkedTo >= 0) {
            ASSERT_EQ(entry.texture,
                      load.Sprite(static_cast<std::size_t>(wanted.linkedTo)).texture);
        }
    }
    std::size_t pictures = 0;
    for (const RandomSff2Entry& entry : random.entries) {
        pictures += entry.linkedTo < 0 ? 1U : 0U;
    }
    ASSERT_EQ(load.device.Created().size(), pictures);
}

TEST(RandomSff2, EachPictureIsWhatWasWritten) {
    constexpr std::array kLines = {DeviceLines::AsWanted, DeviceLines::Tight, DeviceLines::Wide};
    const int rounds = Rounds(3000);
    std::size_t entries = 0;
    std::size_t links = 0;
    for (int round = 0; round < rounds; ++round) {
        SCOPED_TRACE("seed " + std::to_string(round));
        const RandomSff2 random(static_cast<std::uint32_t>(round));
        const std::vector<std::byte> bytes = WriteSff2(random.archive, random.options);
        for (const unsigned helpers : {0U, 3U}) {
            ArchiveLoad load(kLines.at(static_cast<std::size_t>(round) % kLines.size()));
            load.options.Additions = true;
            load.helpers = helpers;
            load.Run(bytes);
            ExpectEntries(random, load);
            if (HasFailure()) {
                return;
            }
        }
        entries += random.entries.size();
        for (const RandomSff2Entry& entry : random.entries) {
            links += entry.linkedTo < 0 ? 0U : 1U;
        }
    }
    // They are worth the time.
    EXPECT_GT(entries, static_cast<std::size_t>(rounds) * 5);
    EXPECT_GT(links, static_cast<std::size_t>(rounds) / 2);
}

}  // namespace
}  // namespace scenara::test
