// SPDX-License-Identifier: MIT
#include "render/ThisProgram.h"

#include <algorithm>
#include <stdexcept>

#include "render/BlendedBlit.h"
#include "render/Require.h"

namespace scenara::bench {
namespace {

void SetBlending(Direct3DDevice8& device, std::uint32_t source, std::uint32_t destination) {
    Require(device.SetRenderState(D3DRS_SRCBLEND, source), "SetRenderState");
    Require(device.SetRenderState(D3DRS_DESTBLEND, destination), "SetRenderState");
}

}  // namespace

ThisProgram::ThisProgram(const Scene& scene)
    : scene_(scene),
      machine_(std::make_shared<TextureMemory>()),
      engine_(machine_, window_, messages_, model_, view_) {
    engine_.Engine_Init();
    if (!engine_.HasDevice()) {
        throw std::runtime_error(messages_.Recorded().back().text);
    }
    for (const ScenePicture& picture : scene.pictures) {
        AddSprite(picture);
    }
}

void ThisProgram::AddSprite(const ScenePicture& picture) {
    TextureParameters parameters;
    parameters.width = picture.width;
    parameters.height = picture.height;
    SpriteEntry sprite;
    sprite.width = static_cast<Integer>(picture.width);
    sprite.height = static_cast<Integer>(picture.height);
    sprite.texture = engine_.Device().CreateTexture(parameters);
    const LockedPixels locked = sprite.texture->LockRect();
    for (int y = 0; y < picture.height; ++y) {
        const auto line = static_cast<std::size_t>(y) * static_cast<std::size_t>(locked.pitch);
        std::ranges::copy(picture.Line(y), locked.words.subspan(line).begin());
    }
    sprite.texture->UnlockRect();
    if (picture.masked) {
        sprite.texture->PreLoad();
    }
    model_.Sprites.push_back(std::move(sprite));
}

void ThisProgram::Draw() {
    Require(engine_.Device().BeginScene(), "BeginScene");
    for (const Blit& blit : scene_.blits) {
        const Blending& blending = scene_.pictures[blit.picture].blending;
        if (blending.kind == BlendKind::None) {
            DrawBlit(blit);
        } else {
            DrawBlendedBlit(blit, blending);
        }
    }
    Require(engine_.Device().EndScene(), "EndScene");
}

// An element of a stage: the states around it are the ones that DrawElement sets.
void ThisProgram::DrawBlit(const Blit& blit) {
    Direct3DDevice8& device = engine_.Device();
    const SpriteEntry& sprite = model_.Sprites[blit.picture];
    const bool masked = scene_.pictures[blit.picture].masked;
    if (masked) {
        SetBlending(device, D3DBLEND_SRCALPHA, D3DBLEND_INVSRCALPHA);
        Require(device.SetRenderState(D3DRS_ALPHABLENDENABLE, 1), "SetRenderState");
    }
    engine_.D3DBlt(sprite.texture, static_cast<Integer>(blit.picture), blit.x, blit.y, sprite.width,
                   sprite.height, 0, 0);
    if (masked) {
        Require(device.SetRenderState(D3DRS_ALPHABLENDENABLE, 0), "SetRenderState");
        SetBlending(device, D3DBLEND_ONE, D3DBLEND_ZERO);
    }
}

void ThisProgram::DrawBlendedBlit(const Blit& blit, const Blending& blending) {
    const SpriteEntry& sprite = model_.Sprites[blit.picture];
    BeginBlending(engine_.Device(), blending);
    DrawBlended(engine_, blending, sprite, {blit.x, blit.y, sprite.width, sprite.height},
                BlitStyle());
    EndBlending(engine_.Device(), blending);
}

std::vector<std::uint32_t> ThisProgram::Picture() {
    const auto pixels = machine_.Device()->BackBuffer();
    return {pixels.begin(), pixels.end()};
}

}  // namespace scenara::bench
