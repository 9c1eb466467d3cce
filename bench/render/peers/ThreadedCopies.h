// SPDX-License-Identifier: MIT
//
// The memcpy of the rectangles (CopiedRectangles.h), by one thread or shared by two: what a second
// core can gain on this machine, whatever is drawn.
#pragma once

#include <vector>

#include "platform/soft/BandWorkers.h"
#include "render/Drawer.h"
#include "render/Scene.h"

namespace scenara::bench {

class ThreadedCopies : public Drawer, private soft::BandWork {
public:
    ThreadedCopies(const Scene& scene, std::int32_t threads);

    void Draw() override;
    [[nodiscard]] std::vector<std::uint32_t> Picture() override { return surface_; }

private:
    void DoBand(std::int32_t band) override;

    const Scene& scene_;
    std::vector<std::uint32_t> surface_;
    soft::BandWorkers workers_;
};

template <std::int32_t kThreads>
class CopiesBy : public ThreadedCopies {
public:
    explicit CopiesBy(const Scene& scene) : ThreadedCopies(scene, kThreads) {}
};

}  // namespace scenara::bench
