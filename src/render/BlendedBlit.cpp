// SPDX-License-Identifier: MIT
#include "render/BlendedBlit.h"

#include <algorithm>

#include "render/BlendStates.h"

namespace scenara {
namespace {

constexpr Integer kWhole = 256;
constexpr std::uint32_t kWhite = 0xFFFFFF;
constexpr std::uint32_t kBlack = 0;

// A vertex colour whose alpha is so many parts of 256.
std::uint32_t AtAlpha(std::uint32_t rgb, Integer parts) {
    return std::min(static_cast<std::uint32_t>(parts), 255U) << 24U | rgb;
}

// How much of what lies behind the picture is taken away before it is added.
Integer Darkening(const Blending& blending) {
    switch (blending.kind) {
        case BlendKind::Add1: return kWhole / 2;
        case BlendKind::AddAlpha: return static_cast<Integer>(kWhole - blending.destination);
        default: return 0;
    }
}

// Calls `draw` with the colour of each quad that it takes.
template <typename Draw>
void DrawAll(Engine& engine, const Blending& blending, Draw draw) {
    Direct3DDevice8& device = engine.Device();
    const Integer darkening = Darkening(blending);
    if (darkening > 0) {
        SetBlendState(device, D3DRS_DESTBLEND, D3DBLEND_INVSRCALPHA);
        draw(AtAlpha(kBlack, darkening));
        SetBlendState(device, D3DRS_DESTBLEND, D3DBLEND_ONE);
    }
    const Integer source = blending.kind == BlendKind::AddAlpha ? blending.source : kWhole;
    draw(AtAlpha(kWhite, source));
}

}  // namespace

void BeginBlending(Direct3DDevice8& device, const Blending& blending) {
    BlendByAlpha(device, D3DBLEND_ONE);
    if (blending.kind == BlendKind::Sub) {
        SetBlendState(device, D3DRS_BLENDOP, D3DBLENDOP_REVSUBTRACT);
    }
}

void DrawBlended(Engine& engine, const Blending& blending, const SpriteEntry& sprite,
                 const SpriteQuad& quad, const BlitStyle& style) {
    DrawAll(engine, blending, [&](std::uint32_t color) {
        engine.Blit(sprite, quad, {style.mirrored, style.flipped, color});
    });
}

void DrawBlendedTurned(Engine& engine, const Blending& blending, const SpriteEntry& sprite,
                       const TurnedQuad& quad, const BlitStyle& style) {
    DrawAll(engine, blending, [&](std::uint32_t color) {
        engine.BlitTurned(sprite, quad, {style.mirrored, style.flipped, color});
    });
}

void EndBlending(Direct3DDevice8& device, const Blending& blending) {
    if (blending.kind == BlendKind::Sub) {
        SetBlendState(device, D3DRS_BLENDOP, D3DBLENDOP_ADD);
    }
    BlendNoMore(device);
}

}  // namespace scenara
