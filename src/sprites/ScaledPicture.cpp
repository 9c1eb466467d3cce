// SPDX-License-Identifier: MIT
#include "sprites/ScaledPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <limits>
#include <new>
#include <span>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

constexpr std::int32_t kLargestSide = std::numeric_limits<std::int16_t>::max();

class ScratchTexture : public Direct3DTexture8 {
public:
    ScratchTexture(std::span<std::uint32_t> words, std::int32_t width, std::int32_t height,
                   std::int32_t pitch)
        : words_(words), width_(width), height_(height), pitch_(pitch) {}

    [[nodiscard]] std::int32_t Width() const override { return width_; }
    [[nodiscard]] std::int32_t Height() const override { return height_; }
    LockedPixels LockRect() override { return {words_, pitch_}; }
    void UnlockRect() override {}
    void PreLoad() override {}

private:
    std::span<std::uint32_t> words_;
    std::int32_t width_;
    std::int32_t height_;
    std::int32_t pitch_;
};

// What a pixel of the result takes of one side of the picture: whole and partial pixels.
struct Stretch {
    std::size_t first = 0;
    std::vector<double> shares;
};

std::vector<Stretch> Stretches(std::int32_t size, double scale) {
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

// Halving, which is what most scaled stages ask for: nothing but whole pixels, and few of them.
bool Halve(const LockedPixels& from, Direct3DTexture8& picture, const LockedPixels& to,
           bool keyed) {
    const auto width = static_cast<std::size_t>(picture.Width());
    const auto height = static_cast<std::size_t>(picture.Height());
    const auto pitch = static_cast<std::size_t>(from.pitch);
    for (std::size_t y = 0; y < height; y += 2) {
        const std::size_t rows = std::min<std::size_t>(2, height - y);
        for (std::size_t row = 0; row < rows; ++row) {
            if (!IsAllOrNothing(from.words.subspan((y + row) * pitch, width))) {
                return false;
            }
        }
        const auto into = to.words.subspan(y / 2 * static_cast<std::size_t>(to.pitch));
        for (std::size_t x = 0; x < width; x += 2) {
            std::array<std::uint32_t, 4> few{};
            std::size_t count = 0;
            for (std::size_t row = 0; row < rows; ++row) {
                few[count++] = from.words[(y + row) * pitch + x];
                if (x + 1 < width) {
                    few[count++] = from.words[(y + row) * pitch + x + 1];
                }
            }
            into[x / 2] = MeanOfFew(std::span(few).first(count), keyed);
        }
    }
    return true;
}

}  // namespace

std::int32_t ScaledSize(std::int32_t size, double scale) {
    // A hair below the exact product, so that a third of 3 is 1.
    const double scaled = std::ceil(size * scale - 1e-9);
    return static_cast<std::int32_t>(std::clamp(scaled, 1.0, static_cast<double>(kLargestSide)));
}

std::shared_ptr<Direct3DTexture8> ScaledPicture(TextureMaker& maker, Direct3DTexture8& picture,
                                                double scale, bool keyed) {
    TextureParameters parameters;
    parameters.width = ScaledSize(picture.Width(), scale);
    parameters.height = ScaledSize(picture.Height(), scale);
    std::shared_ptr<Direct3DTexture8> scaled = maker.CreateTexture(parameters);
    const LockedPixels from = picture.LockRect();
    const LockedPixels to = scaled->LockRect();
    if (scale == 0.5 && Halve(from, picture, to, keyed)) {
        scaled->UnlockRect();
        picture.UnlockRect();
        return scaled;
    }
    const std::vector<Stretch> columns = Stretches(picture.Width(), scale);
    const std::vector<Stretch> rows = Stretches(picture.Height(), scale);
    for (std::size_t y = 0; y < rows.size(); ++y) {
        const auto line = to.words.subspan(y * static_cast<std::size_t>(to.pitch), columns.size());
        for (std::size_t x = 0; x < columns.size(); ++x) {
            Mean mean(keyed);
            for (std::size_t j = 0; j < rows[y].shares.size(); ++j) {
                const auto source = from.words.subspan(
                    (rows[y].first + j) * static_cast<std::size_t>(from.pitch) + columns[x].first,
                    columns[x].shares.size());
                for (std::size_t i = 0; i < source.size(); ++i) {
                    mean.Add(source[i], rows[y].shares[j] * columns[x].shares[i]);
                }
            }
            line[x] = mean.Argb();
        }
    }
    scaled->UnlockRect();
    picture.UnlockRect();
    return scaled;
}

std::shared_ptr<Direct3DTexture8> ScratchTextures::CreateTexture(
    const TextureParameters& parameters) {
    if (parameters.width < 1 || parameters.width > kLargestSide || parameters.height < 1 ||
        parameters.height > kLargestSide) {
        throw RunTimeError(RunTimeErrorKind::Overflow, "a picture's size");
    }
    const std::int32_t pitch = std::max(parameters.width, parameters.wantedPitch);
    const std::size_t needed =
        static_cast<std::size_t>(pitch) * static_cast<std::size_t>(parameters.height) +
        parameters.wantedSlack;
    if (words_.size() < needed) {
        words_ = {};  // growing would hold the old ones and the new ones at once
        words_.resize(needed);
    }
    return std::make_shared<ScratchTexture>(std::span(words_).first(needed), parameters.width,
                                            parameters.height, pitch);
}

}  // namespace scenara
