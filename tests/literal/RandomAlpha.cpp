// SPDX-License-Identifier: MIT
#include "literal/RandomAlpha.h"

#include <cstddef>

#include "samplemaker/Noise.h"

namespace scenara::test {
namespace {

using samplemaker::LatticeValue;

// A third of them nothing, a third of them whole.
std::uint32_t AlphaAt(double value) {
    if (value < 1.0 / 3) {
        return 0;
    }
    return value < 2.0 / 3 ? 255 : static_cast<std::uint32_t>((value - 2.0 / 3) * 3 * 255);
}

std::uint32_t WithAlpha(std::uint32_t texel, std::uint32_t alpha) {
    return alpha << 24U | (texel & 0xFFFFFFU);
}

// `change` makes another texel of one and its place.
template <typename Change>
void ChangeTexels(Direct3DTexture8& texture, Change change) {
    const LockedPixels pixels = texture.LockRect();
    for (int y = 0; y < texture.Height(); ++y) {
        for (int x = 0; x < texture.Width(); ++x) {
            const auto place =
                static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.pitch) +
                static_cast<std::size_t>(x);
            pixels.words[place] = change(pixels.words[place], x, y);
        }
    }
    texture.UnlockRect();
}

void GiveAlpha(SpriteEntry& sprite, samplemaker::Random& random) {
    const auto seed = random.Next();
    const int block = random.Whole(1, 5);
    switch (random.Whole(0, 5)) {
        case 0: break;
        case 1: sprite.trueColor = 1; break;
        case 2:
            sprite.trueColor = 1;
            ChangeTexels(*sprite.texture,
                         [](std::uint32_t texel, int, int) { return WithAlpha(texel, 255); });
            break;
        case 3:
            ChangeTexels(*sprite.texture, [&](std::uint32_t texel, int, int) {
                const auto color = static_cast<int>(texel & 0xFFFFFFU);
                return texel >> 24U == 0 ? texel
                                         : WithAlpha(texel, AlphaAt(LatticeValue(color, 0, seed)));
            });
            break;
        default:
            sprite.trueColor = 1;
            ChangeTexels(*sprite.texture, [&](std::uint32_t texel, int x, int y) {
                return WithAlpha(texel, AlphaAt(LatticeValue(x / block, y / block, seed)));
            });
    }
}

}  // namespace

void GiveAlpha(StageModel& model, std::uint32_t seed) {
    samplemaker::Random random(seed);
    for (SpriteEntry& sprite : model.Sprites) {
        if (sprite.linkedTo < 0) {
            GiveAlpha(sprite, random);
        } else {
            sprite.trueColor = model.Sprites[static_cast<std::size_t>(sprite.linkedTo)].trueColor;
        }
    }
}

}  // namespace scenara::test
