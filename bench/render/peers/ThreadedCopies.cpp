// SPDX-License-Identifier: MIT
#include "render/peers/ThreadedCopies.h"

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace scenara::bench {
namespace {

constexpr std::int32_t kBands = 8;

}  // namespace

ThreadedCopies::ThreadedCopies(const Scene& scene, std::int32_t threads)
    : scene_(scene),
      surface_(static_cast<std::size_t>(scene.canvas.width) *
               static_cast<std::size_t>(scene.canvas.height)),
      workers_(threads) {}

void ThreadedCopies::Draw() {
    workers_.Do(*this, kBands);
}

void ThreadedCopies::DoBand(std::int32_t band) {
    const int top = scene_.canvas.height * band / kBands;
    const int bottom = scene_.canvas.height * (band + 1) / kBands;
    for (const Blit& blit : scene_.blits) {
        const ScenePicture& picture = scene_.pictures[blit.picture];
        const ClippedRange columns = ClipToView(blit.x, picture.width, scene_.canvas.width);
        const int first = std::max(0, top - blit.y);
        const int last = std::min(picture.height, bottom - blit.y);
        for (int y = first; columns.from < columns.to && y < last; ++y) {
            const auto bytes =
                static_cast<std::size_t>(columns.to - columns.from) * sizeof(std::uint32_t);
            const auto line = static_cast<std::ptrdiff_t>(blit.y + y) * scene_.canvas.width;
            std::memcpy(surface_.data() + line + blit.x + columns.from,
                        &picture.Line(y)[static_cast<std::size_t>(columns.from)], bytes);
        }
    }
}

}  // namespace scenara::bench
