// SPDX-License-Identifier: MIT
//
// A memcpy per line of each clipped rectangle, as if nothing were transparent: another picture, and
// what a drawer that looks at every pixel cannot be expected to beat.
#pragma once

#include "render/Drawer.h"
#include "render/Scene.h"

namespace scenara::bench {

class CopiedRectangles : public Drawer {
public:
    explicit CopiedRectangles(const Scene& scene);

    void Draw() override;
    [[nodiscard]] std::vector<std::uint32_t> Picture() override { return surface_; }

private:
    const Scene& scene_;
    std::vector<std::uint32_t> surface_;
};

}  // namespace scenara::bench
