// SPDX-License-Identifier: MIT
#include "render/peers/CopiedRectangles.h"

#include <cstring>

namespace scenara::bench {

CopiedRectangles::CopiedRectangles(const Scene& scene)
    : scene_(scene),
      surface_(static_cast<std::size_t>(scene.canvas.width) *
               static_cast<std::size_t>(scene.canvas.height)) {}

void CopiedRectangles::Draw() {
    for (const Blit& blit : scene_.blits) {
        const ScenePicture& picture = scene_.pictures[blit.picture];
        const ClippedRange columns = ClipToView(blit.x, picture.width, scene_.canvas.width);
        const ClippedRange rows = ClipToView(blit.y, picture.height, scene_.canvas.height);
        if (columns.from >= columns.to) {
            continue;
        }
        const auto bytes =
            static_cast<std::size_t>(columns.to - columns.from) * sizeof(std::uint32_t);
        for (int y = rows.from; y < rows.to; ++y) {
            std::memcpy(&surface_[static_cast<std::size_t>((blit.y + y) * scene_.canvas.width +
                                                           blit.x + columns.from)],
                        &picture.Line(y)[static_cast<std::size_t>(columns.from)], bytes);
        }
    }
}

}  // namespace scenara::bench
