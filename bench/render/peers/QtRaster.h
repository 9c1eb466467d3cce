// SPDX-License-Identifier: MIT
//
// A scene with Qt's raster painter: images in the formats that Qt recommends for it, premultiplied
// ARGB for masked pictures and RGB for the others, drawn over an RGB image. Composition is the
// painter's default, source over, which copies what has no alpha.
#pragma once

#include <memory>

#include "render/Drawer.h"
#include "render/Scene.h"

namespace scenara::bench {

class QtRaster : public Drawer {
public:
    explicit QtRaster(const Scene& scene);
    ~QtRaster() override;

    void Draw() override;
    [[nodiscard]] std::vector<std::uint32_t> Picture() override;

private:
    struct Images;  // keeps the library's headers out

    const Scene& scene_;
    std::unique_ptr<Images> images_;
};

}  // namespace scenara::bench
