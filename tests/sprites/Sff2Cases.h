// SPDX-License-Identifier: MIT
//
// One case of a table on archives of version 2: what is in the archive, which entries a stage has
// of it, and what is said.
#pragma once

#include <cstddef>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "ArchiveLoad.h"
#include "Sff2Parts.h"

namespace scenara::test {

// An entry of Sprites.
struct Seen {
    int group = 0;
    int image = 0;
    Words pixels;
    int linkedTo = -1;
    int axisX = 0;
    int axisY = 0;
};

using TextMatcher = testing::Matcher<std::string>;

struct Sff2Case {
    std::string name;
    Sff2Archive archive{};
    std::vector<Seen> seen{};
    std::vector<TextMatcher> said{};
    Sff2Options options{};
    std::function<void(std::vector<std::byte>&)> change{};  // of the written file
};

// A picture of all colours from 0 to 23, which every coding holds.
inline const IndexedPicture& Stripes() {
    static const IndexedPicture picture = StripedPicture(6, 4, PaletteOf(1), 32);
    return picture;
}

// Group 0, in the colours of a palette that is PaletteOf(seed).
[[nodiscard]] inline Seen StripesAt(int image, std::uint8_t seed = 1, int linkedTo = -1) {
    return {0, image, KeyedByIndex(Stripes(), PaletteOf(seed)), linkedTo};
}
[[nodiscard]] inline Sff2Sprite StripesSprite(unsigned image, unsigned palette = 0,
                                              Sff2Coding coding = Sff2Coding::Raw) {
    return Numbered(Sff2SpriteOf(Stripes(), coding), 0, image, palette);
}

inline void ExpectLoads(const Sff2Case& row, std::span<const std::byte> bytes, ArchiveLoad& load) {
    load.options.Additions = true;
    load.Run(bytes);
    ASSERT_EQ(load.model.Sprites.size(), row.seen.size()) << testing::PrintToString(load.Texts());
    EXPECT_EQ(static_cast<std::size_t>(load.model.SpriteCount), row.seen.size());
    for (std::size_t i = 0; i < row.seen.size(); ++i) {
        SCOPED_TRACE("entry " + std::to_string(i));
        const Seen& seen = row.seen[i];
        const SpriteEntry& entry = load.Sprite(i);
        EXPECT_EQ(entry.group, seen.group);
        EXPECT_EQ(entry.image, seen.image);
        EXPECT_EQ(entry.axisX, seen.axisX);
        EXPECT_EQ(entry.axisY, seen.axisY);
        EXPECT_EQ(entry.linkedTo, seen.linkedTo);
        EXPECT_EQ(entry.width, entry.texture->Width());
        EXPECT_EQ(entry.height, entry.texture->Height());
        EXPECT_EQ(load.Pixels(i), seen.pixels);
        for (std::size_t k = 0; k < i; ++k) {
            const auto shownBy = [&](std::size_t of) {
                const int link = row.seen[of].linkedTo;
                return link < 0 ? of : static_cast<std::size_t>(link);
            };
            EXPECT_EQ(entry.texture == load.Sprite(k).texture, shownBy(i) == shownBy(k))
                << "with entry " << k;
        }
    }
    EXPECT_THAT(load.Texts(), testing::ElementsAreArray(row.said));
    EXPECT_EQ(load.device.Counts().locks, load.device.Counts().unlocks);
}

// On every kind of device.
inline void ExpectCases(const std::vector<Sff2Case>& rows) {
    for (const Sff2Case& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<std::byte> bytes = WriteSff2(row.archive, row.options);
        if (row.change) {
            row.change(bytes);
        }
        for (const DeviceLines lines :
             {DeviceLines::AsWanted, DeviceLines::Tight, DeviceLines::Wide}) {
            ArchiveLoad load(lines);
            ExpectLoads(row, bytes, load);
        }
    }
}

}  // namespace scenara::test
