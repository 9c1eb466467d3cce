// SPDX-License-Identifier: MIT
//
// SpriteStand: how large, and where in its box, the sprite browser shows a sprite.
//
// All lengths are pixels of the screen, but for the sprite's own. A sprite is shown at a whole
// multiple of its size, or at a half, a third and so on of it: no other size leaves its pixels
// alike. Where it has room it stands in the middle; else it can be moved as far as its edges.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/Integers.h"
#include "platform/Window.h"
#include "stage/StageModel.h"

namespace scenara {

class SpriteStand {
public:
    // Another sprite, or another box: in the middle, at what shows all of it as large as possible,
    // and no larger than `most` (a value of Times()). A length below 1 counts as 1.
    void Fit(const InnerSize& box, const InnerSize& sprite, Long most = kAnyTimes);

    // The same sprite in a box of another size: the same size, if that is still one of its sizes.
    void FitAgain(const InnerSize& box);

    // To the next size, with the point of the sprite under this point of the box left there as far
    // as it can be. No smaller than at its own size or than what shows all of it; no larger than
    // kMostTimes or than what shows all of it. Whether there was a next one.
    bool Step(bool larger, Long x, Long y);

    // By so much, as far as it can be moved.
    void Move(Long byX, Long byY);

    // 3: three pixels each way for each of the sprite's; -3: one for three of them.
    [[nodiscard]] Long Times() const { return times_; }
    // "3x", "1/3".
    [[nodiscard]] std::string TimesText() const;

    // Of the sprite's upper left corner in the box; below 0 where it is cut.
    [[nodiscard]] Long Left() const { return left_; }
    [[nodiscard]] Long Top() const { return top_; }
    [[nodiscard]] Long Width() const { return Shown(sprite_.width); }
    [[nodiscard]] Long Height() const { return Shown(sprite_.height); }
    [[nodiscard]] const InnerSize& Box() const { return box_; }

    static constexpr Long kMostTimes = 64;
    static constexpr Long kAnyTimes = 0x7FFFFFFF;

private:
    [[nodiscard]] Long TimesThatFit() const;
    [[nodiscard]] Long Shown(Long length) const;
    void Settle();

    InnerSize box_{1, 1};
    InnerSize sprite_{1, 1};
    Long times_ = 1;
    Long left_ = 0;
    Long top_ = 0;
};

// The sprite as it stands there, black around it, over all of the box; `pixels` is filled anew:
// 0xAARRGGBB, opaque, line by line. What is transparent in it shows a checkerboard of squares of
// kCheckSize pixels of the screen, the first one light. Made smaller, a pixel is the mean of those
// under it, of at most kMostOfMean x kMostOfMean of them. Without a texture it is all black.
void PaintSprite(const SpriteEntry& sprite, const SpriteStand& stand,
                 std::vector<std::uint32_t>& pixels);

inline constexpr Long kMostOfMean = 4;

// --- the checkerboard ---

inline constexpr Long kCheckSize = 8;
inline constexpr std::uint32_t kLightCheck = 0xFFCCCCCC;
inline constexpr std::uint32_t kDarkCheck = 0xFF999999;

// At this place in the sprite as it is shown.
[[nodiscard]] constexpr std::uint32_t CheckAt(Long x, Long y) {
    return (x / kCheckSize + y / kCheckSize) % 2 == 0 ? kLightCheck : kDarkCheck;
}

// `texel` over something opaque, each colour rounded to the nearest value.
[[nodiscard]] std::uint32_t Over(std::uint32_t texel, std::uint32_t behind);

}  // namespace scenara
