// SPDX-License-Identifier: MIT
//
// A scene as this program draws it: Engine::D3DBlt and DrawBlended on the soft device.
#pragma once

#include <memory>

#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/soft/SoftDirect3D.h"
#include "render/Drawer.h"
#include "render/Engine.h"
#include "render/Scene.h"
#include "stage/StageModel.h"

namespace scenara::bench {

class ThisProgram : public Drawer {
public:
    explicit ThisProgram(const Scene& scene);

    void Draw() override;
    [[nodiscard]] std::vector<std::uint32_t> Picture() override;

private:
    void AddSprite(const ScenePicture& picture);
    void DrawBlit(const Blit& blit);
    void DrawBlendedBlit(const Blit& blit, const Blending& blending);

    const Scene& scene_;
    SoftDirect3D machine_;
    HeadlessWindow window_;
    HeadlessMessages messages_;
    StageModel model_;
    View view_;
    Engine engine_;
};

}  // namespace scenara::bench
