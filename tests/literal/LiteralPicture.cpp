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

// Of 255ths; there are no ties.
int Nearest(int parts) {
    return std::min((2 * parts + 255) / (2 * 255), 255);
}

// A picture's alpha and that of what it is drawn with.
int Both(int alpha, int share) {
    return Nearest(alpha * share);
}

// One channel, each way of laying a share of a picture upon what stands there.
int Over(int behind, int picture, int share) {
    return Nearest(behind * (255 - share) + picture * share);
}
int Plus(int behind, int picture, int share) {
    return Nearest(behind * 255 + picture * share);
}
int Less(int behind, int picture, int share) {
    return Nearest(std::max(behind * 255 - picture * share, 0));
}

// Each way to blend is one quad or two, and each quad rounds.
int BlendedChannel(const Blending& blending, int behind, int picture, int alpha) {
    switch (blending.kind) {
        case BlendKind::None: return Over(behind, picture, alpha);
        case BlendKind::Add: return Plus(behind, picture, alpha);
        case BlendKind::Add1: return Plus(Over(behind, 0, Both(alpha, 128)), picture, alpha);
        case BlendKind::Sub: return Less(behind, picture, alpha);
        case BlendKind::AddAlpha: {
            const int black = ShareOf255(256 - blending.destination);
            return Plus(Over(behind, 0, Both(alpha, black)), picture,
                        Both(alpha, ShareOf255(blending.source)));
        }
    }
    return picture;
}

std::uint32_t Blended(const Blending& blending, std::uint32_t behind, std::uint32_t picture) {
    const int alpha = Channel(picture, 24);
    std::uint32_t result = 0;
    for (const int shift : {16, 8, 0}) {
        const int channel =
            BlendedChannel(blending, Channel(behind, shift), Channel(picture, shift), alpha);
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
        ReadFrame(element, shown);
    }
    if (sprite < 0) {
        return std::nullopt;
    }
    shown.image = &images_[static_cast<std::size_t>(sprite)];
    shown.masked = file.mask == 1 || shown.image->trueColor;
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
    if (shown.CountsAlpha() && texel >> 24U == 0) {
        return;
    }
    const auto place = static_cast<std::size_t>(y * Width() + x);
    const bool opaque = shown.blending.kind == BlendKind::None && texel >> 24U == 255;
    if (!shown.CountsAlpha() || opaque) {
        inDoubt_[place] = 0;  // whatever was there
    }
    std::uint32_t& pixel = picture_[place];
    pixel = shown.CountsAlpha() ? Blended(shown.blending, pixel, texel) : texel & 0xFFFFFFU;
}

}  // namespace scenara::test
