// SPDX-License-Identifier: MIT
#include "literal/RandomArchive.h"

#include <cstdint>

#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"

namespace scenara::test {
namespace {

using samplemaker::Random;

samplemaker::Palette RandomPalette(Random& random) {
    samplemaker::Palette palette{};
    for (samplemaker::Rgb& colour : palette) {
        colour = {static_cast<std::uint8_t>(random.Whole(0, 255)),
                  static_cast<std::uint8_t>(random.Whole(0, 255)),
                  static_cast<std::uint8_t>(random.Whole(0, 255))};
    }
    return palette;
}

int RandomSize(Random& random, int view) {
    switch (random.Whole(0, 9)) {
        case 0: return random.Whole(1, 4);
        case 1: return random.Whole(view - 1, view + 80);
        default: return random.Whole(5, 120);
    }
}

// Blocks of one colour: no two places look alike, and there are holes of colour 0.
samplemaker::IndexedPicture RandomPicture(Random& random) {
    samplemaker::IndexedPicture picture;
    picture.width = RandomSize(random, 320);
    picture.height = RandomSize(random, 240);
    picture.palette = RandomPalette(random);
    const auto seed = random.Next();
    const int block = random.Whole(1, 9);
    const int holes = random.Whole(0, 60);
    for (int y = 0; y < picture.height; ++y) {
        for (int x = 0; x < picture.width; ++x) {
            const double value = samplemaker::LatticeValue(x / block, y / block, seed);
            const int index = static_cast<int>(value * (255 + holes)) - holes;
            picture.pixels.push_back(static_cast<std::uint8_t>(index < 0 ? 0 : index));
        }
    }
    return picture;
}

}  // namespace

std::vector<std::byte> MakeRandomArchive(Random& random) {
    std::vector<samplemaker::Sff1Subfile> subfiles;
    for (std::int16_t group = 0; group < kRandomGroups; ++group) {
        for (std::int16_t image = 0; image < kRandomImages; ++image) {
            if (random.Whole(0, 5) == 0) {
                continue;
            }
            samplemaker::Sff1Subfile subfile;
            subfile.group = group;
            subfile.image = image;
            subfile.axisX = static_cast<std::int16_t>(random.Whole(-60, 160));
            subfile.axisY = static_cast<std::int16_t>(random.Whole(-60, 120));
            if (!subfiles.empty() && random.Whole(0, 6) == 0) {
                subfile.linkIndex = static_cast<std::int16_t>(
                    random.Whole(0, static_cast<int>(subfiles.size()) - 1));
            } else {
                subfile.data = samplemaker::WritePcx(RandomPicture(random));
            }
            subfiles.push_back(std::move(subfile));
        }
    }
    if (subfiles.empty()) {
        samplemaker::Sff1Subfile subfile;
        subfile.data = samplemaker::WritePcx(RandomPicture(random));
        subfiles.push_back(std::move(subfile));
    }
    return samplemaker::WriteSff1(subfiles);
}

}  // namespace scenara::test
