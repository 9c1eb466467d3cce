// SPDX-License-Identifier: MIT
//
// SoftEngine: an engine on the soft device, and the stage that it draws.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>

#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/soft/SoftDirect3D.h"
#include "render/Engine.h"
#include "stage/StageModel.h"
#include "support/StageFixture.h"

namespace scenara::test {

struct SoftEngine {
    SoftEngine() { engine.Engine_Init(); }

    // Instead of all others, a sprite of these texels, line by line.
    void Sprite(Integer width, Integer height, auto texel) {
        TextureParameters parameters;
        parameters.width = width;
        parameters.height = height;
        SpriteEntry sprite;
        sprite.width = width;
        sprite.height = height;
        sprite.texture = engine.Device().CreateTexture(parameters);
        std::ranges::generate(sprite.texture->LockRect().words, texel);
        sprite.texture->UnlockRect();
        model.Sprites.assign(1, sprite);
        model.SpriteCount = 1;
    }
    [[nodiscard]] std::span<std::uint32_t> Pixels() { return machine.Device()->BackBuffer(); }

    SoftDirect3D machine{KeptTextureMemory()};
    HeadlessWindow window;
    HeadlessMessages messages;
    StageModel model;
    View picture;
    Engine engine{machine, window, messages, model, picture};
};

}  // namespace scenara::test
