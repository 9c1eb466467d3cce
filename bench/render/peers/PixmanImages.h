// SPDX-License-Identifier: MIT
//
// A scene with pixman: masked pictures as premultiplied ARGB with the operator OVER or ADD, the
// others without alpha and with SRC.
//
// It adds a tenth faster to a surface with alpha, so scenes that add are drawn to one.
#pragma once

#include <memory>

#include "render/Drawer.h"
#include "render/Scene.h"

union pixman_image;

namespace scenara::bench {

class PixmanImages : public Drawer {
public:
    explicit PixmanImages(const Scene& scene);

    void Draw() override;
    [[nodiscard]] std::vector<std::uint32_t> Picture() override;

private:
    struct Free {
        void operator()(pixman_image* image) const;
    };
    using Image = std::unique_ptr<pixman_image, Free>;

    void Scale(pixman_image* image, const ScenePicture& picture, const Blit& blit) const;

    const Scene& scene_;
    Image screen_;
    std::vector<Image> images_;
};

}  // namespace scenara::bench
