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

// How many pixels of the window it shows; without a spot, how many it could.
std::int64_t SeenOn(const ScreenRectangle& screen, const WindowStand& stand) {
    const WindowStand::Spot corner{screen.left, screen.top};
    const Shown shown = ShownOn(screen, stand.spot.value_or(corner), stand.size);
    return shown.width * shown.height;
}

bool CanBeMovedOn(const ScreenRectangle& screen, const WindowStand& stand) {
    const Shown edge = ShownOn(screen, *stand.spot, {stand.size.width, kLeastSeenHeight});
    return edge.width >= std::min(kLeastSeenWidth, stand.size.width) &&
           edge.height >= kLeastSeenHeight;
}

}  // namespace

WindowStand OnScreens(const WindowStand& stand, std::span<const ScreenRectangle> workAreas) {
    if (workAreas.empty()) {
        return stand;
    }
    WindowStand on = stand;
    const auto seen = [&](const ScreenRectangle& each) { return SeenOn(each, on); };
    const auto canBeMoved = [&](const ScreenRectangle& each) { return CanBeMovedOn(each, on); };
    const auto isSeen = [&](const ScreenRectangle& each) { return seen(each) > 0; };
    if (on.spot &&
        (std::ranges::none_of(workAreas, canBeMoved) || std::ranges::none_of(workAreas, isSeen))) {
        on.spot.reset();
    }
    const ScreenRectangle& screen = *std::ranges::max_element(workAreas, {}, seen);
    on.size = {std::min(stand.size.width, screen.width),
               std::min(stand.size.height, screen.height)};
    return on;
}

}  // namespace scenara
