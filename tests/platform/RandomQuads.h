// SPDX-License-Identifier: MIT
//
// Random textures, quads and states for the proofs that the fast paths draw what the general path
// draws.
#pragma once

#include <algorithm>
#include <cstdint>
#include <random>

#include "SoftQuads.h"
#include "platform/View.h"

namespace scenara::test {

using soft::kColorMask;
using soft::kWhite;
using soft::PixelStates;
using soft::Target;
using soft::Texels;

// Every texel another colour, as far as that goes.
inline std::uint32_t Numbered(std::int32_t x, std::int32_t y) {
    return (static_cast<std::uint32_t>(y) << 12U | static_cast<std::uint32_t>(x)) & kColorMask;
}

enum class Pixels { Opaque, Masked, Translucent };

class RandomQuad {
public:
    explicit RandomQuad(std::mt19937& random) : random_(random) {}

    [[nodiscard]] std::int32_t Between(std::int32_t from, std::int32_t to) {
        return std::uniform_int_distribution<std::int32_t>(from, to)(random_);
    }

    [[nodiscard]] PlainTexture Texture() {
        const auto kind = static_cast<Pixels>(Between(0, 2));
        const std::int32_t longest = Between(1, 40);
        std::int32_t left = 0;
        std::uint32_t alpha = 0;
        return {Between(1, 3) == 1 ? Between(1, 20) : Between(16, 700),
                Between(1, 3) == 1 ? Between(1, 20) : Between(1, 300),
                [&](std::int32_t x, std::int32_t y) {
                    if (left-- == 0) {
                        left = Between(0, longest);
                        alpha = NextAlpha(kind);
                    }
                    return alpha << 24U | (Numbered(x, y) * 0x9E3779B1U >> 8U);
                },
                Between(0, 9)};
    }

    // The view's, or another one.
    [[nodiscard]] CanvasSize Size() {
        return Between(0, 3) == 0 ? CanvasSize{Between(1, 2000), Between(1, 40)} : CanvasSize();
    }

    [[nodiscard]] Blit BlitOf(const Texels& texels, const CanvasSize& size) {
        Blit blit;
        blit.width = Between(1, 3) == 1 ? texels.width : Between(1, size.width + 80);
        blit.height = Between(1, 3) == 1 ? texels.height : Between(1, size.height + 60);
        blit.x = Between(-blit.width - 3, size.width + 3);
        blit.y = Between(-blit.height - 3, size.height + 3);
        if (Between(1, 3) != 1) {
            blit.sourceX = Between(-1500, 1500);
            blit.sourceY = Between(-500, 500);
        }
        blit.mirrored = Between(0, 1) == 1;
        blit.color = Color();
        return blit;
    }

    [[nodiscard]] PixelStates States() {
        if (Between(0, 3) == 0) {
            return {};
        }
        if (Between(0, 1) == 0) {
            return kCovering;
        }
        if (Between(0, 1) == 0) {  // as pictures are blended
            return {true, D3DBLEND_SRCALPHA, D3DBLEND_ONE,
                    Between(0, 1) == 0 ? D3DBLENDOP_ADD : D3DBLENDOP_REVSUBTRACT, D3DTOP_MODULATE};
        }
        const std::uint32_t factors[] = {D3DBLEND_ZERO, D3DBLEND_ONE, D3DBLEND_SRCALPHA,
                                         D3DBLEND_INVSRCALPHA};
        return {true, factors[Between(0, 3)], factors[Between(0, 3)],
                static_cast<std::uint32_t>(Between(1, 3)),
                Between(0, 1) == 0 ? D3DTOP_SELECTARG1 : D3DTOP_MODULATE};
    }

    // A rectangle of texels at any scale from 1/40 to 40, with centres on borders in some.
    [[nodiscard]] ScaledBlit ScaledBlitOf(const Texels& texels, const CanvasSize& size) {
        ScaledBlit blit;
        blit.columns = SomeOf(texels.width);
        blit.lines = SomeOf(texels.height);
        blit.width = Scaled(blit.columns);
        blit.height = Scaled(blit.lines);
        blit.x = Between(-blit.width - 3, size.width + 3);
        blit.y = Between(-blit.height - 3, size.height + 3);
        if (Between(0, 1) == 0) {
            blit.sourceX = Between(-texels.width, texels.width);
            blit.sourceY = Between(-texels.height, texels.height);
        }
        blit.mirrored = Between(0, 1) == 1;
        blit.flipped = Between(0, 1) == 1;
        blit.color = Color();
        return blit;
    }

    // A part of it, or most of the view.
    [[nodiscard]] Target Clipped(const Target& whole) {
        Target target = whole;
        if (Between(0, 1) == 0) {
            target.left = Between(0, whole.width - 1);
            target.right = Between(target.left + 1, whole.width);
            target.top = Between(0, whole.height - 1);
            target.bottom = Between(target.top + 1, whole.height);
        }
        return target;
    }

    // A background of many colours.
    [[nodiscard]] TestView Coloured(const CanvasSize& size) {
        TestView view(0, size);
        auto color = static_cast<std::uint32_t>(Between(0, 0xFFFFFF));
        for (std::uint32_t& pixel : view.Pixels().pixels) {
            color = color * 1664525U + 1013904223U;
            pixel = color >> 8U;
        }
        return view;
    }

private:
    [[nodiscard]] std::uint32_t NextAlpha(Pixels kind) {
        if (kind == Pixels::Opaque) {
            return 255;
        }
        if (kind == Pixels::Translucent && Between(0, 1) == 0) {
            return static_cast<std::uint32_t>(Between(0, 255));
        }
        return Between(0, 1) == 0 ? 0 : 255;
    }

    [[nodiscard]] std::int32_t SomeOf(std::int32_t texels) {
        switch (Between(0, 3)) {
            case 0: return Between(1, texels);
            case 1: return Between(1, 3 * texels);
            default: return texels;
        }
    }

    [[nodiscard]] std::int32_t Scaled(std::int32_t texels) {
        switch (Between(0, 4)) {
            case 0: return texels * Between(1, 40);
            case 1: return std::max(texels / Between(1, 40), 1);
            case 2: return std::max(texels * Between(1, 40) / 40, 1);
            case 3: return texels + Between(0, 3);
            default: return Between(1, 700);
        }
    }

    [[nodiscard]] std::uint32_t Color() {
        switch (Between(0, 4)) {
            case 0: return static_cast<std::uint32_t>(Between(0, 0x7FFFFFFF)) * 2U;
            case 1: return static_cast<std::uint32_t>(Between(0, 255)) << 24U | kColorMask;
            case 2: return static_cast<std::uint32_t>(Between(0, 255)) << 24U;
            default: return kWhite;
        }
    }

    std::mt19937& random_;
};

}  // namespace scenara::test
