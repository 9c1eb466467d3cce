// SPDX-License-Identifier: MIT
//
// A scene as quads for the soft device, on a canvas of any size.
#pragma once

#include <memory>
#include <vector>

#include "platform/soft/SoftDevice.h"
#include "render/Drawer.h"
#include "render/Scene.h"

namespace scenara::bench {

class DeviceQuads : public Drawer {
public:
    explicit DeviceQuads(const Scene& scene, std::int32_t threads = 1);

    void Draw() override;
    [[nodiscard]] std::vector<std::uint32_t> Picture() override;

private:
    struct Quad {
        std::shared_ptr<Direct3DTexture8> texture;
        bool masked;
        Vertex corners[4];
    };

    std::vector<Quad> quads_;
    SoftDevice device_;
};

// By as many threads as the program takes.
class ThreadedQuads : public DeviceQuads {
public:
    explicit ThreadedQuads(const Scene& scene)
        : DeviceQuads(scene, SoftDevice::ThreadsForDrawing()) {}
};

}  // namespace scenara::bench
