// SPDX-License-Identifier: MIT
//
// EditedStage: a stage that is played with the debug editor on, and pictures with holes for it.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "editor/DebugEditor.h"
#include "platform/soft/SoftDevice.h"
#include "render/StagePlayer.h"
#include "support/StageFixture.h"

namespace scenara::test {

// A texture of these rows, an 'X' for every pixel of this colour that can be seen. The others have
// the same colour and are transparent, as index 0 of a palette is.
inline std::shared_ptr<Direct3DTexture8> PaintedTexture(const std::vector<std::string>& rows,
                                                        std::uint32_t color = 0xFFFFFF) {
    static SoftDevice device{KeptTextureMemory()};
    TextureParameters parameters;
    parameters.width = static_cast<std::int32_t>(rows.front().size());
    parameters.height = static_cast<std::int32_t>(rows.size());
    auto texture = device.CreateTexture(parameters);
    const LockedPixels pixels = texture->LockRect();
    for (std::size_t y = 0; y < rows.size(); ++y) {
        for (std::size_t x = 0; x < rows[y].size(); ++x) {
            pixels.words[y * static_cast<std::size_t>(pixels.pitch) + x] =
                rows[y][x] == 'X' ? 0xFF000000 | color : color;
        }
    }
    texture->UnlockRect();
    return texture;
}

struct EditedStage : StagePlayer {
    explicit EditedStage(const ViewOptions& options = kPlainView) : StagePlayer(options) {
        flags.DebugBG = kByteTrue;
    }

    // The index of a sprite of these rows.
    Integer Picture(const std::vector<std::string>& rows, Integer axisX = 0, Integer axisY = 0,
                    std::uint32_t color = 0xFFFFFF) {
        const Integer index = build.Sprite("painted", static_cast<Integer>(rows.front().size()),
                                           static_cast<Integer>(rows.size()), axisX, axisY);
        model.Sprites.back().texture = PaintedTexture(rows, color);
        return index;
    }

    // Ten by ten pixels without a hole.
    Integer Square() { return Picture(std::vector<std::string>(10, "XXXXXXXXXX")); }

    // An element with this name, its picture's upper left corner at (x, y).
    BackgroundElement& Named(const std::string& name, Integer sprite, Long x, Long y) {
        BackgroundElement& element = StageBuilder::At(build.Still(sprite), x, y);
        element.name = name;
        return element;
    }

    [[nodiscard]] std::string Names() const {
        std::string names;
        for (const BackgroundElement& element : model.Elements) {
            names.append(names.empty() ? "" : " ").append(element.name);
        }
        return names;
    }

    [[nodiscard]] Integer At(Long x, Long y) const {
        return TopmostElementAt(model, DrawOptionsOf(model, camera, picture, view), {x, y});
    }

    // A second later, this key at the end of one pass.
    void Press(VirtualKey key) {
        clock.now += 1000;
        keyboard.Hold({key});
        editor.AtEndOfPass();
        keyboard.Hold({});
    }

    // A frame in which the editor is asked as the stage's loop does.
    void PlayFrame() {
        DrawScene(engine, editedTiles, flags);
        static_cast<void>(record.TakeLines());
    }

    std::vector<std::string> captions;
    int dumps = 0;
    DebugEditor editor{
        {model, camera, picture, flags, view, keyboard, clock},
        {[this](const std::string& caption) { captions.push_back(caption); }, [this] { ++dumps; }}};
    TileEngine editedTiles{engine,
                           model,
                           camera,
                           picture,
                           flags,
                           view,
                           CameraInput{keyboard, clock, pointer, window, &editor}};
};

}  // namespace scenara::test
