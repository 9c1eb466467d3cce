// SPDX-License-Identifier: MIT
#include "sprites/ScaledPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <utility>

namespace scenara {
namespace {

constexpr std::int32_t kLargestSide = std::numeric_limits<std::int16_t>::max();

class Mean {
public:
    explicit Mean(bool keyed) : keyed_(keyed) {}

    void Add(std::uint32_t argb, double share) {
        const double alpha = argb >> 24U;
        weight_ += share;
        alpha_ += share * alpha;
        for (std::size_t i = 0; i < plain_.size(); ++i) {
            const double colour = argb >> (8U * i) & 0xFFU;
            plain_[i] += share * colour;
            visible_[i] += share * alpha * colour;
        }
    }

    [[nodiscard]] std::uint32_t Argb() const {
        std::uint32_t argb = Byte(alpha_ / weight_) << 24U;
        for (std::size_t i = 0; i < plain_.size(); ++i) {
            const double colour = keyed_ && alpha_ > 0 ? visible_[i] / alpha_ : plain_[i] / weight_;
            argb |= Byte(colour) << (8U * i);
        }
        return argb;
    }

private:
    static std::uint32_t Byte(double value) {
        return static_cast<std::uint32_t>(std::clamp(value + 0.5, 0.0, 255.0));
    }

    bool keyed_;
    double weight_ = 0;
    double alpha_ = 0;
    std::array<double, 3> plain_{};
    std::array<double, 3> visible_{};
};

// The mean of up to four pixels whose alphas are 0 or 255, as Mean has it, in whole numbers.
std::uint32_t MeanOfFew(std::span<const std::uint32_t> pixels, bool keyed) {
    std::uint32_t visible = 0;
    for (const std::uint32_t pixel : pixels) {
        visible += pixel >> 31U;
    }
    const auto all = static_cast<std::uint32_t>(pixels.size());
    const bool onlyVisible = keyed && visible > 0;
    // Red and blue in one word, green in another, with room for four of each.
    std::uint32_t redBlue = 0;
    std::uint32_t green = 0;
    for (const std::uint32_t pixel : pixels) {
        if (!onlyVisible || pixel >> 31U != 0) {
            redBlue += pixel & 0xFF00FFU;
            green += pixel >> 8U & 0xFFU;
        }
    }
    const std::uint32_t counted = onlyVisible ? visible : all;
    const auto mean = [](std::uint32_t sum, std::uint32_t of) { return (sum + of / 2) / of; };
    return mean(255 * visible, all) << 24U | mean(redBlue >> 16U, counted) << 16U |
           mean(green, counted) << 8U | mean(redBlue & 0xFFFFU, counted);
}

bool IsAllOrNothing(std::span<const std::uint32_t> pixels) {
    return std::all_of(pixels.begin(), pixels.end(), [](std::uint32_t pixel) {
        return pixel >> 24U == 0 || pixel >> 24U == 255;
    });
}

}  // namespace

std::int32_t ScaledSize(std::int32_t size, double scale) {
    // A hair below the exact product, so that a third of 3 is 1.
    const double scaled = std::ceil(size * scale - 1e-9);
    return static_cast<std::int32_t>(std::clamp(scaled, 1.0, static_cast<double>(kLargestSide)));
}

std::vector<PictureScaler::Stretch> PictureScaler::Stretches(std::int32_t size, double scale) {
    std::vector<Stretch> stretches(static_cast<std::size_t>(ScaledSize(size, scale)));
    for (std::size_t i = 0; i < stretches.size(); ++i) {
        const double from = std::min(static_cast<double>(i) / scale, size - 1.0);
        const double to = std::min(static_cast<double>(i + 1) / scale, static_cast<double>(size));
        stretches[i].first = static_cast<std::size_t>(from);
        const auto behind = static_cast<std::size_t>(std::ceil(to));
        for (std::size_t pixel = stretches[i].first; pixel < behind; ++pixel) {
            const auto start = static_cast<double>(pixel);
            stretches[i].shares.push_back(std::min(to, start + 1) - std::max(from, start));
        }
    }
    return stretches;
}

void PictureScaler::Begin(std::int32_t width, std::int32_t height) {
    Unlock();
    scaled_ = nullptr;
    TextureParameters parameters;
    parameters.width = ScaledSize(width, scale_);
    parameters.height = ScaledSize(height, scale_);
    columns_ = Stretches(width, scale_);
    rows_ = Stretches(height, scale_);
    heldLines_ = 1;
    for (const Stretch& row : rows_) {
        heldLines_ = std::max(heldLines_, row.shares.size());
    }
    width_ = static_cast<std::size_t>(width);
    lines_.resize(width_ * heldLines_);
    begun_ = 0;
    made_ = 0;
    scaled_ = maker_.CreateTexture(parameters);
    locked_ = scaled_->LockRect();
}

std::span<std::uint32_t> PictureScaler::LineOf(std::size_t y) {
    return std::span(lines_).subspan(y % heldLines_ * width_, width_);
}

std::span<std::uint32_t> PictureScaler::NextLine() {
    TakeLine();
    return LineOf(begun_++);
}

std::shared_ptr<Direct3DTexture8> PictureScaler::End() {
    TakeLine();
    Unlock();
    return std::move(scaled_);
}

void PictureScaler::Unlock() {
    if (!locked_.words.empty()) {
        scaled_->UnlockRect();
        locked_ = {};
    }
}

// Makes what can be made of the lines that are complete.
void PictureScaler::TakeLine() {
    while (made_ < rows_.size() && rows_[made_].End() <= begun_) {
        const auto line =
            locked_.words.subspan(made_ * static_cast<std::size_t>(locked_.pitch), columns_.size());
        const Stretch& row = rows_[made_++];
        if (scale_ != 0.5 || !HalveLine(row, line)) {
            MakeLine(row, line);
        }
    }
}

// Halving, which is what most scaled stages ask for: nothing but whole pixels, and few of them.
bool PictureScaler::HalveLine(const Stretch& row, std::span<std::uint32_t> line) {
    const std::size_t rows = row.shares.size();
    std::array<std::span<const std::uint32_t>, 2> from;
    for (std::size_t i = 0; i < rows; ++i) {
        from.at(i) = LineOf(row.first + i);
        if (!IsAllOrNothing(from.at(i))) {
            return false;
        }
    }
    for (std::size_t x = 0; x < width_; x += 2) {
        std::array<std::uint32_t, 4> few{};
        std::size_t count = 0;
        for (std::size_t i = 0; i < rows; ++i) {
            few[count++] = from[i][x];
            if (x + 1 < width_) {
                few[count++] = from[i][x + 1];
            }
        }
        line[x / 2] = MeanOfFew(std::span(few).first(count), keyed_);
    }
    return true;
}

void PictureScaler::MakeLine(const Stretch& row, std::span<std::uint32_t> line) {
    for (std::size_t x = 0; x < columns_.size(); ++x) {
        Mean mean(keyed_);
        const Stretch& column = columns_[x];
        for (std::size_t j = 0; j < row.shares.size(); ++j) {
            const auto source = LineOf(row.first + j).subspan(column.first, column.shares.size());
            for (std::size_t i = 0; i < source.size(); ++i) {
                mean.Add(source[i], row.shares[j] * column.shares[i]);
            }
        }
        line[x] = mean.Argb();
    }
}

}  // namespace scenara
