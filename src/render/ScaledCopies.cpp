// SPDX-License-Identifier: MIT
#include "render/ScaledCopies.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace scenara {
namespace {

// So many copies are shown one by one, however near they are.
constexpr std::int64_t kFew = 64;

// A place in whole pixels. Kept within what any sum of them can hold.
std::int64_t Rounded(double place) {
    constexpr double kFarthest = 9007199254740992.0;  // 2^53
    return static_cast<std::int64_t>(std::floor(std::clamp(place, -kFarthest, kFarthest) + 0.5));
}

}  // namespace

ScaledCopies::ScaledCopies(const Tiles& tiles, double position, double scale, double stepScale)
    : position_(position),
      step_(static_cast<double>(DrawnStep(tiles)) * stepScale),
      size_(static_cast<double>(tiles.size) * scale),
      whole_(scale == std::floor(scale) ? Rounded(size_) : 0),
      wholeStep_(step_ == std::floor(step_)),
      // At one scale in whole numbers: products may round to the same.
      touch_(scale == stepScale ? DrawnStep(tiles) == tiles.size : step_ == size_),
      overlap_(step_ != 0 && (scale == stepScale ? DrawnStep(tiles) < tiles.size : step_ < size_)) {
    constexpr std::int64_t kEndless = std::numeric_limits<Long>::max();
    const bool endless = tiles.Endless() && step_ != 0;
    least_ = endless ? -kEndless : 0;
    most_ = endless ? kEndless : step_ == 0 ? 0 : std::int64_t{tiles.count} - 1;
}

ScaledCopies ScaledCopies::OfSize(const Tiles& tiles, double position, double size, double step) {
    const auto pixels = static_cast<double>(tiles.size);
    ScaledCopies copies(tiles, position, size / pixels, step / pixels);
    copies.size_ = size;
    copies.step_ = DrawnStep(tiles) == tiles.size
                       ? step
                       : static_cast<double>(DrawnStep(tiles)) * step / pixels;
    copies.wholeStep_ = copies.step_ == std::floor(copies.step_);
    return copies;
}

double ScaledCopies::CopiesIn(std::int64_t pixels) const {
    if (step_ == 0) {
        return 1;
    }
    const double most = (static_cast<double>(pixels) + size_) / step_ + 1;
    return std::min(most, static_cast<double>(most_) - static_cast<double>(least_) + 1);
}

std::int64_t ScaledCopies::Depth() const {
    if (!overlap_) {
        return 1;
    }
    const double most = static_cast<double>(most_) - static_cast<double>(least_) + 1;
    return Rounded(std::min(most, std::ceil(size_ / step_)));
}

ScaledCopies::Numbers ScaledCopies::NumbersIn(const PixelRange& visible,
                                              std::int64_t deepest) const {
    if (step_ == 0) {
        return {0, 0, 1, 1};
    }
    // One more at each end, for what rounding moves.
    const double from = static_cast<double>(visible.from) - position_ - size_;
    const double to = static_cast<double>(visible.to) - position_;
    Numbers numbers;
    numbers.first = std::clamp(Rounded(std::floor(from / step_)) - 1, least_, most_);
    numbers.last = std::clamp(Rounded(std::ceil(to / step_)) + 1, least_, most_);
    numbers.count = numbers.last - numbers.first + 1;
    if (overlap_) {
        const std::int64_t depth = std::min(numbers.count, Depth());
        const bool crowded = step_ < 1 && most_ - least_ >= kFew;
        if (depth > deepest || crowded) {
            // Counted from the first of all, so that the same ones are shown wherever they are.
            const auto perPixel = crowded ? Rounded(std::ceil(1 / step_)) : std::int64_t{1};
            numbers.nth = std::max((depth - 1) / deepest + 1, perPixel);
            numbers.first = std::max(least_, FloorDivide(numbers.first, numbers.nth) * numbers.nth);
            numbers.count = (numbers.last - numbers.first - 1) / numbers.nth + 2;
        }
    } else if (step_ < 1) {
        numbers.nth = 0;
        numbers.count = std::max<std::int64_t>(visible.to - visible.from, 0);
    }
    return numbers;
}

std::int64_t ScaledCopies::InCopy(std::int64_t number, double place) const {
    const double along = Along(number);
    return wholeStep_ ? Rounded(place) + Rounded(along) : Rounded(place + along);
}

PixelRange ScaledCopies::At(std::int64_t number) const {
    const std::int64_t begin = BeginOf(number);
    if (touch_) {
        return {begin, BeginOf(number + 1)};
    }
    const std::int64_t end = whole_ != 0 ? begin + whole_ : InCopy(number, position_ + size_);
    return {begin, step_ == 0 || overlap_ ? end : std::min(end, BeginOf(number + 1))};
}

// The last copy that begins in the column or before it.
std::int64_t ScaledCopies::LastAt(std::int64_t column, const Numbers& numbers) const {
    const double number = (static_cast<double>(column) + 0.5 - position_) / step_;
    std::int64_t last = Rounded(std::ceil(number)) - 1;
    // Rounding is beside by one at most; where steps are too small to count, any will do.
    if (BeginOf(last + 1) <= column) {
        ++last;
    }
    if (BeginOf(last) > column) {
        --last;
    }
    return std::clamp(last, numbers.first, numbers.last);
}

}  // namespace scenara
