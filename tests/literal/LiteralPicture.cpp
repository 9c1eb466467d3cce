// SPDX-License-Identifier: MIT
//
// What an element of a LiteralStage shows, and how one pixel of that changes the picture.
#include <algorithm>
#include <cstddef>

#include "literal/LiteralStage.h"

namespace scenara::test {
namespace {

int Channel(std::uint32_t colour, int shift) {
    return static_cast<int>(colour >> static_cast<unsigned>(shift) & 0xFFU);
}

// A share of 256 as a share of 255.
int ShareOf255(int share) {
    return std::min(share, 255);
}

// One channel: what stands there times one share of 255, and the picture times another one.
int Mixed(int behind, int behindShare, int picture, int pictureShare) {
    const int sum = behind * behindShare + picture * pictureShare;
    return std::min((2 * sum + 255) / (2 * 255), 255);  // the nearest; there are no ties
}

// Each way to blend is one quad or two, and each quad rounds.
int BlendedChannel(const Blending& blending, int behind, int picture) {
    switch (blending.kind) {
        case BlendKind::None: return picture;
        case BlendKind::Add: return Mixed(behind, 255, picture, 255);
        case BlendKind::Add1: return Mixed(Mixed(behind, 255 - 128, 0, 0), 255, picture, 255);
        case BlendKind::Sub: return std::max(behind - picture, 0);
        case BlendKind::AddAlpha: {
            const int black = ShareOf255(256 - blending.destination);
            return Mixed(Mixed(behind, 255 - black, 0, 0), 255, picture,
                         ShareOf255(blending.source));
        }
    }
    return picture;
}

std::uint32_t Blended(const Blending& blending, std::uint32_t behind, std::uint32_t picture) {
    if (blending.kind == BlendKind::None) {
        return picture;
    }
    std::uint32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        const int channel =
            BlendedChannel(blending, Channel(behind, shift), Channel(picture, shift));
        result |= static_cast<std::uint32_t>(channel) << static_cast<unsigned>(shift);
    }
    return result;
}

}  // namespace

std::optional<LiteralStage::Shown> LiteralStage::ShownOf(const Element& element) const {
    const BackgroundElement& file = *element.file;
    if (element.dummy) {
        return std::nullopt;
    }
    Shown shown;
    shown.masked = file.mask == 1;
    shown.blending = file.blending;
    int sprite = file.spriteIndex;
    if (element.animated) {
        const StageAction& action = model_.Actions[static_cast<std::size_t>(element.action)];
        if (action.frames.empty()) {
            return std::nullopt;
        }
        const StageFrame& frame = action.frames[static_cast<std::size_t>(element.frame)];
        sprite = frame.spriteIndex;
        const bool both = frame.flip == "hv" || frame.flip == "vh";
        const bool flipsDown = both || frame.flip == "v";
        shown.mirrored = {frame.flip == "h" || (both && rules_.mirrorsAboutAxis),
                          flipsDown && rules_.mirrorsAboutAxis};
        shown.offset = {frame.offsetX + Wide(frame.offsetFraction[0]),
                        frame.offsetY + Wide(frame.offsetFraction[1])};
        if (file.framesBlend != 0) {
            shown.blending = frame.blending;
        }
    }
    if (sprite < 0) {
        return std::nullopt;
    }
    shown.image = &images_[static_cast<std::size_t>(sprite)];
    if (!rules_.blends) {
        shown.blending = {};
    }
    return shown;
}

// A linked element's own swing is not seen.
double LiteralStage::CarriedBy(const Element& element, std::size_t axis) const {
    if (element.parent < 0) {
        return Wide(element.swings[axis].offset);
    }
    const Element& parent = elements_[static_cast<std::size_t>(element.parent)];
    return Wide(parent.notedSwing[axis]) + parent.notedMotion[axis];
}

LiteralStage::Span LiteralStage::Whole(std::size_t axis) const {
    return {0, axis == 0 ? Width() : Height()};
}

void LiteralStage::Put(std::int64_t x, std::int64_t y, std::uint32_t texel, const Shown& shown) {
    const bool blends = shown.blending.kind != BlendKind::None;
    if ((shown.masked || blends) && texel >> 24U == 0) {
        return;
    }
    std::uint32_t& pixel = picture_[static_cast<std::size_t>(y * Width() + x)];
    pixel = Blended(shown.blending, pixel, texel & 0xFFFFFFU);
}

}  // namespace scenara::test
