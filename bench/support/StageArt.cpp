// SPDX-License-Identifier: MIT
#include "support/StageArt.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <random>
#include <span>
#include <vector>

namespace scenara::bench {
namespace {

using samplemaker::IndexedPicture;
using samplemaker::Palette;

constexpr int kShades = 16;

// The standard's engine, because its numbers are the same everywhere; its distributions are not.
class Dice {
public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}

    // 0 to sides - 1.
    int Roll(int sides) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(sides)); }
    bool Percent(int chance) { return Roll(100) < chance; }

private:
    std::mt19937 engine_;
};

// Sixteen ramps of sixteen shades. Index 0 is a colour that no other index has, as artists choose
// it, because programs tell the transparent pixels by their colour too.
Palette MakePalette(Dice& dice) {
    Palette palette;
    for (int ramp = 0; ramp < 256 / kShades; ++ramp) {
        const int hue[] = {dice.Roll(12), dice.Roll(12), dice.Roll(12)};
        for (int shade = 0; shade < kShades; ++shade) {
            const auto level = [&](int part) {
                return static_cast<std::uint8_t>(8 * shade + hue[part] * (shade + 1) / 2 + ramp);
            };
            palette[static_cast<std::size_t>(ramp) * kShades + static_cast<std::size_t>(shade)] = {
                level(0), level(1), level(2)};
        }
    }
    palette[0] = {255, 0, 255};
    return palette;
}

IndexedPicture EmptyPicture(int width, int height, Dice& dice) {
    const auto pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    return {width, height, std::vector<std::uint8_t>(pixels), MakePalette(dice)};
}

std::span<std::uint8_t> Row(IndexedPicture& picture, int y) {
    const auto width = static_cast<std::size_t>(picture.width);
    return std::span(picture.pixels).subspan(static_cast<std::size_t>(y) * width, width);
}

// One of the ramps below 192, where a single pixel is a single byte, but now and then a high one.
int ChooseRamp(Dice& dice) {
    return (dice.Percent(8) ? 12 + dice.Roll(4) : 1 + dice.Roll(11)) * kShades;
}

// Stone, leaves, cloth: neighbours mostly a shade or two apart, with plain stretches between them.
class Texture {
public:
    explicit Texture(Dice& dice)
        : ramp_(ChooseRamp(dice)), busy_(65 + dice.Roll(35)), plain_(14 + dice.Roll(30)) {}

    std::uint8_t Next(Dice& dice) {
        if (dice.Percent(5)) {
            fine_ = !fine_;
        }
        if (dice.Percent(fine_ ? busy_ : plain_)) {
            shade_ = std::clamp(shade_ + dice.Roll(7) - 3, 0, kShades - 1);
        }
        return static_cast<std::uint8_t>(ramp_ + shade_);
    }

private:
    int ramp_;
    int busy_;   // how often, in percent, a pixel differs from its left neighbour in a fine stretch
    int plain_;  // and in a plain one
    bool fine_ = true;
    int shade_ = kShades / 2;
};

// A line that wanders between `low` and `high`, straight for a while and then stepping.
std::vector<int> DrawSkyline(int width, int low, int high, Dice& dice) {
    std::vector<int> line;
    int y = low + dice.Roll(std::max(high - low, 1));
    int slope = 0;
    while (line.size() < static_cast<std::size_t>(width)) {
        if (dice.Percent(6)) {
            slope = dice.Roll(5) - 2;
        }
        if (dice.Percent(2)) {
            y += dice.Roll(41) - 20;
        }
        y = std::clamp(y + (dice.Percent(40) ? slope : 0), low, high);
        line.push_back(y);
    }
    return line;
}

void FillBelow(IndexedPicture& picture, std::span<const int> skyline, Dice& dice) {
    std::array<Texture, 5> textures = {Texture(dice), Texture(dice), Texture(dice), Texture(dice),
                                       Texture(dice)};
    for (int y = 0; y < picture.height; ++y) {
        const std::span<std::uint8_t> row = Row(picture, y);
        for (std::size_t x = 0; x < row.size(); ++x) {
            if (y >= skyline[x]) {
                const std::size_t material =
                    (x / 96 + static_cast<std::size_t>(y) / 40) % textures.size();
                row[x] = textures[material].Next(dice);
            }
        }
    }
}

// The usual four by four pattern: a shade between two becomes some pixels of the one and some of
// the other.
void DrawSky(IndexedPicture& picture, Dice& dice) {
    constexpr int kPattern[4][4] = {{0, 8, 2, 10}, {12, 4, 14, 6}, {3, 11, 1, 9}, {15, 7, 13, 5}};
    const int ramp = ChooseRamp(dice);
    for (int y = 0; y < picture.height; ++y) {
        const int level = y * (kShades - 1) * 16 / picture.height;
        // A band is flat in its upper half; towards the next one it is dithered.
        const int mix = std::max(0, level % 16 - 8) * 2;
        int x = 0;
        for (std::uint8_t& pixel : Row(picture, y)) {
            const int step = kPattern[y % 4][x % 4] < mix ? 1 : 0;
            pixel = static_cast<std::uint8_t>(ramp + level / 16 + step);
            ++x;
        }
    }
}

struct Oval {
    int x = 0;
    int y = 0;
    int halfWidth = 1;
    int halfHeight = 1;

    // Half of its width in line `row`; below 0: the line does not meet it.
    [[nodiscard]] int Reach(int row) const {
        const int distance = std::abs(row - y);
        if (distance >= halfHeight) {
            return -1;
        }
        return halfWidth - halfWidth * distance * distance / (halfHeight * halfHeight);
    }
};

// Calls `paint` with each pixel of the oval that the picture has.
template <class Paint>
void ForEachPixel(IndexedPicture& picture, const Oval& oval, int wobble, Dice& dice, Paint paint) {
    for (int y = 0; y < picture.height; ++y) {
        const int reach = oval.Reach(y);
        if (reach < 0) {
            continue;
        }
        const int left = std::max(0, oval.x - reach + dice.Roll(wobble));
        const int right = std::min(picture.width, oval.x + reach - dice.Roll(wobble));
        for (int x = left; x < right; ++x) {
            paint(Row(picture, y)[static_cast<std::size_t>(x)]);
        }
    }
}

void PaintFlat(IndexedPicture& picture, const Oval& oval, std::uint8_t value, Dice& dice) {
    ForEachPixel(picture, oval, 4, dice, [value](std::uint8_t& pixel) { pixel = value; });
}

}  // namespace

IndexedPicture DrawBackdrop(int width, int height, std::uint32_t seed) {
    Dice dice(seed);
    IndexedPicture picture = EmptyPicture(width, height, dice);
    DrawSky(picture, dice);
    const auto cloud = static_cast<std::uint8_t>(ChooseRamp(dice) + kShades - 1);
    for (int i = 0; i < width / 80; ++i) {
        const Oval oval = {dice.Roll(width), dice.Roll(height / 2), 20 + dice.Roll(60),
                           4 + dice.Roll(12)};
        PaintFlat(picture, oval, cloud, dice);
    }
    FillBelow(picture, DrawSkyline(width, height / 3, height * 3 / 4, dice), dice);
    return picture;
}

IndexedPicture DrawLayer(int width, int height, std::uint32_t seed) {
    Dice dice(seed);
    IndexedPicture picture = EmptyPicture(width, height, dice);
    FillBelow(picture, DrawSkyline(width, height * 2 / 5, height * 3 / 4, dice), dice);
    for (int i = 0; i < width / 24; ++i) {
        const Oval opening = {dice.Roll(width), dice.Roll(height), 2 + dice.Roll(24),
                              4 + dice.Roll(24)};
        PaintFlat(picture, opening, 0, dice);
    }
    return picture;
}

IndexedPicture DrawRow(int width, int height, std::uint32_t seed) {
    Dice dice(seed);
    IndexedPicture picture = EmptyPicture(width, height, dice);
    const int gap = 30 + dice.Roll(50);
    for (int x = dice.Roll(gap); x < width; x += 20 + dice.Roll(2 * gap)) {
        const int thickness = 16 + dice.Roll(70);
        Texture texture(dice);
        int left = x;
        for (int y = dice.Roll(height / 5 + 1); y < height; ++y) {
            left += dice.Roll(3) - 1;
            const int right = std::min(width, left + thickness);
            for (int at = std::max(0, left); at < right; ++at) {
                Row(picture, y)[static_cast<std::size_t>(at)] = texture.Next(dice);
            }
        }
        x += thickness;
    }
    return picture;
}

IndexedPicture DrawObject(int width, int height, std::uint32_t seed) {
    Dice dice(seed);
    IndexedPicture picture = EmptyPicture(width, height, dice);
    for (int i = 0; i < 6; ++i) {
        const Oval part = {width / 4 + dice.Roll(std::max(width / 2, 1)),
                           height / 4 + dice.Roll(std::max(height / 2, 1)),
                           2 + dice.Roll(std::max(width / 5, 1)),
                           2 + dice.Roll(std::max(height / 3, 1))};
        Texture texture(dice);
        ForEachPixel(picture, part, 3, dice,
                     [&](std::uint8_t& pixel) { pixel = texture.Next(dice); });
    }
    return picture;
}

}  // namespace scenara::bench
