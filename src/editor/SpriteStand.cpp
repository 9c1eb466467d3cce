// SPDX-License-Identifier: MIT
#include "editor/SpriteStand.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>

#include "base/NumberText.h"
#include "render/TexelLock.h"

namespace scenara {
namespace {

constexpr std::uint32_t kOpaque = 0xFF000000;
constexpr std::uint32_t kAround = kOpaque;
constexpr std::uint32_t kMostAlpha = 255;
constexpr std::array kColourShifts = {0U, 8U, 16U};

// The multiples that one goes through. Beyond the first few the next one would hardly be seen.
constexpr std::array<Long, 15> kSteps = {1, 2, 3, 4, 5, 6, 8, 10, 12, 16, 20, 24, 32, 48, 64};

// The next one after n; n itself at the end.
Long NextAfter(Long n) {
    const auto* const next = std::upper_bound(kSteps.begin(), kSteps.end(), n);
    return next == kSteps.end() ? std::max(n, kSteps.back()) : *next;
}
Long NextBefore(Long n) {
    const auto* const next = std::lower_bound(kSteps.begin(), kSteps.end(), n);
    return next == kSteps.begin() ? kSteps.front() : *(next - 1);
}

// 1/2 comes before 1; 1/1 is 1.
Long Larger(Long times) {
    if (times >= 1) {
        return NextAfter(times);
    }
    const Long part = NextBefore(-times);
    return part == 1 ? 1 : -part;
}
Long Smaller(Long times) {
    // Beyond the last step by halves: so small is only what is huge.
    constexpr Long kLast = kSteps.back();
    if (times > 1) {
        return NextBefore(times);
    }
    const Long part = times == 1 ? 1 : -times;
    return -(part < kLast ? NextAfter(part) : part * 2);
}

double Scale(Long times) {
    return times >= 1 ? static_cast<double>(times) : -1.0 / static_cast<double>(times);
}

Long RoundedUp(Long dividend, Long divisor) {
    return dividend / divisor + (dividend % divisor != 0 ? 1 : 0);
}

// In the middle; or where it is, as long as all of the box shows it.
Long Settled(Long begin, Long length, Long box) {
    return length <= box ? (box - length) / 2 : std::clamp<Long>(begin, box - length, 0);
}

// Where the point under `at` comes to stand at another size, `at` stays.
Long BeginAfter(Long begin, Long at, double before, double after) {
    const double centre = at + 0.5;
    return static_cast<Long>(std::lround(centre - (centre - begin) / before * after));
}

// Which of the sprite's columns, or rows, stand under one of those that are shown, and how far
// those of them that count are from each other.
struct Under {
    Long from = 0;
    Long to = 0;
    Long step = 1;
};

Under UnderShown(Long shown, Long times, Long length) {
    if (times >= 1) {
        return {shown / times, shown / times + 1, 1};
    }
    const Long part = -times;
    return {shown * part, std::min(shown * part + part, length), RoundedUp(part, kMostOfMean)};
}

// Colours count as much as they are seen.
std::uint32_t MeanOf(const TexelLock& texels, const Under& columns, const Under& rows) {
    std::array<std::uint32_t, kColourShifts.size()> colours{};
    std::uint32_t alpha = 0;
    std::uint32_t count = 0;
    for (Long y = rows.from; y < rows.to; y += rows.step) {
        for (Long x = columns.from; x < columns.to; x += columns.step) {
            const std::uint32_t texel = texels.At(x, y);
            for (std::size_t i = 0; i < colours.size(); ++i) {
                colours[i] += (texel >> kColourShifts[i] & 0xFFU) * AlphaOf(texel);
            }
            alpha += AlphaOf(texel);
            ++count;
        }
    }
    if (alpha == 0) {
        return 0;
    }
    std::uint32_t mean = (alpha + count / 2) / count << 24U;
    for (std::size_t i = 0; i < colours.size(); ++i) {
        mean |= (colours[i] + alpha / 2) / alpha << kColourShifts[i];
    }
    return mean;
}

}  // namespace

std::uint32_t Over(std::uint32_t texel, std::uint32_t behind) {
    const std::uint32_t alpha = AlphaOf(texel);
    if (alpha == kMostAlpha) {
        return texel;
    }
    std::uint32_t mixed = kOpaque;
    for (const std::uint32_t shift : kColourShifts) {
        const std::uint32_t front = texel >> shift & 0xFFU;
        const std::uint32_t back = behind >> shift & 0xFFU;
        mixed |= (front * alpha + back * (kMostAlpha - alpha) + kMostAlpha / 2) / kMostAlpha
                 << shift;
    }
    return mixed;
}

void SpriteStand::Fit(const InnerSize& box, const InnerSize& sprite, Long most) {
    box_ = {std::max<Long>(box.width, 1), std::max<Long>(box.height, 1)};
    sprite_ = {std::max<Long>(sprite.width, 1), std::max<Long>(sprite.height, 1)};
    times_ = std::min(TimesThatFit(), most);
    Settle();
}

void SpriteStand::FitAgain(const InnerSize& box) {
    const Long before = times_;
    const bool fitted = before == TimesThatFit();
    Fit(box, sprite_);
    if (!fitted) {
        times_ = std::clamp(before, std::min<Long>(times_, 1), std::max(times_, kMostTimes));
        Settle();
    }
}

Long SpriteStand::TimesThatFit() const {
    const Long times = std::min(box_.width / sprite_.width, box_.height / sprite_.height);
    if (times >= 1) {
        return times;
    }
    return -std::max(RoundedUp(sprite_.width, box_.width), RoundedUp(sprite_.height, box_.height));
}

bool SpriteStand::Step(bool larger, Long x, Long y) {
    const Long fits = TimesThatFit();
    const Long next = larger ? std::min(Larger(times_), std::max(fits, kMostTimes))
                             : std::max(Smaller(times_), std::min<Long>(fits, 1));
    // What fits is beyond the last step.
    const Long taken = larger && next == times_ ? std::max(fits, times_) : next;
    if (taken == times_) {
        return false;
    }
    const double before = Scale(times_);
    const double after = Scale(taken);
    left_ = BeginAfter(left_, x, before, after);
    top_ = BeginAfter(top_, y, before, after);
    times_ = taken;
    Settle();
    return true;
}

// A pointer may be said to be anywhere.
void SpriteStand::Move(Long byX, Long byY) {
    const auto moved = [](Long from, Long by, Long length, Long box) {
        return static_cast<Long>(
            std::clamp<std::int64_t>(std::int64_t{from} + by, -std::int64_t{length}, box));
    };
    left_ = moved(left_, byX, Width(), box_.width);
    top_ = moved(top_, byY, Height(), box_.height);
    Settle();
}

std::string SpriteStand::TimesText() const {
    return times_ >= 1 ? NumberText(times_) + "x" : "1/" + NumberText(-times_);
}

Long SpriteStand::Shown(Long length) const {
    return times_ >= 1 ? length * times_ : RoundedUp(length, -times_);
}

void SpriteStand::Settle() {
    left_ = Settled(left_, Width(), box_.width);
    top_ = Settled(top_, Height(), box_.height);
}

void PaintSprite(const SpriteEntry& sprite, const SpriteStand& stand,
                 std::vector<std::uint32_t>& pixels) {
    const InnerSize& box = stand.Box();
    const auto width = static_cast<std::size_t>(box.width);
    pixels.assign(width * static_cast<std::size_t>(box.height), kAround);
    if (!sprite.texture) {
        return;
    }
    const TexelLock texels(*sprite.texture);
    const Long times = stand.Times();
    const Long left = std::max<Long>(stand.Left(), 0);
    const Long right = std::min(stand.Left() + stand.Width(), box.width);
    const Long bottom = std::min(stand.Top() + stand.Height(), box.height);
    for (Long y = std::max<Long>(stand.Top(), 0); y < bottom; ++y) {
        const Long shownY = y - stand.Top();
        const Under rows = UnderShown(shownY, times, sprite.height);
        std::uint32_t* line = pixels.data() + static_cast<std::size_t>(y) * width;
        for (Long x = left; x < right; ++x) {
            const Long shownX = x - stand.Left();
            const Under columns = UnderShown(shownX, times, sprite.width);
            const std::uint32_t texel =
                times >= 1 ? texels.At(columns.from, rows.from) : MeanOf(texels, columns, rows);
            line[x] = Over(texel, CheckAt(shownX, shownY));
        }
    }
}

}  // namespace scenara
