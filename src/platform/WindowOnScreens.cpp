// SPDX-License-Identifier: MIT
#include "platform/WindowOnScreens.h"

#include <algorithm>
#include <cstdint>

namespace scenara {
namespace {

// What two lengths from a place on have in common. A file may say where a window stands: its
// numbers are of any size.
std::int64_t Common(std::int64_t a, std::int64_t lengthOfA, std::int64_t b,
                    std::int64_t lengthOfB) {
    return std::max<std::int64_t>(std::min(a + lengthOfA, b + lengthOfB) - std::max(a, b), 0);
}

struct Shown {
    std::int64_t width = 0;
    std::int64_t height = 0;
};

Shown ShownOn(const ScreenRectangle& screen, const WindowStand::Spot& spot, const InnerSize& size) {
    return {Common(screen.left, screen.width, spot.left, size.width),
            Common(screen.top, screen.height, spot.top, size.height)};
}

bool HasUpperEdgeOn(const ScreenRectangle& screen, const WindowStand::Spot& spot,
                    const InnerSize& size) {
    const Shown edge = ShownOn(screen, spot, {size.width, kLeastSeenHeight});
    return edge.width >= std::min(kLeastSeenWidth, size.width) && edge.height >= kLeastSeenHeight;
}

}  // namespace

WindowStand OnScreens(const WindowStand& stand, std::span<const ScreenRectangle> workAreas) {
    if (workAreas.empty()) {
        return stand;
    }
    WindowStand on = stand;
    const ScreenRectangle* screen = &workAreas.front();
    if (stand.spot) {
        const auto area = [&](const ScreenRectangle& each) {
            const Shown shown = ShownOn(each, *stand.spot, stand.size);
            return shown.width * shown.height;
        };
        const auto most = std::ranges::max_element(workAreas, {}, area);
        const bool canBeMoved = std::ranges::any_of(workAreas, [&](const ScreenRectangle& each) {
            return HasUpperEdgeOn(each, *stand.spot, stand.size);
        });
        if (canBeMoved && area(*most) > 0) {
            screen = &*most;
        } else {
            on.spot.reset();
        }
    }
    on.size = {std::min(stand.size.width, screen->width),
               std::min(stand.size.height, screen->height)};
    return on;
}

}  // namespace scenara
