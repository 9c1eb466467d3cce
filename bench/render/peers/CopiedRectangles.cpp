// SPDX-License-Identifier: MIT
#include "render/peers/CopiedRectangles.h"

#include <cstring>

#include "platform/Direct3D8.h"
#include "platform/View.h"

namespace scenara::bench {

CopiedRectangles::CopiedRectangles(const Scene& scene)
    : scene_(scene), surface_(std::size_t{View().width} * std::size_t{View().height}) {}

void CopiedRectangles::Draw() {
    for (const Blit& blit : scene_.blits) {
        const ScenePicture& picture = scene_.pictures[blit.picture];
        const ClippedRange columns = ClipToView(blit.x, picture.width, View().width);
        const ClippedRange rows = ClipToView(blit.y, picture.height, View().height);
        if (columns.from >= columns.to) {
            continue;
        }
        const auto bytes =
            static_cast<std::size_t>(columns.to - columns.from) * sizeof(std::uint32_t);
        for (int y = rows.from; y < rows.to; ++y) {
            std::memcpy(&surface_[static_cast<std::size_t>((blit.y + y) * View().width + blit.x +
                                                           columns.from)],
                        &picture.Line(y)[static_cast<std::size_t>(columns.from)], bytes);
        }
    }
}

}  // namespace scenara::bench
