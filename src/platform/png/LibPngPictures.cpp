// SPDX-License-Identifier: MIT
#include "platform/png/LibPngPictures.h"

#include <array>
#include <utility>
#include <vector>

#include "base/RunTimeError.h"
#include "platform/png/PngReader.h"

namespace scenara {
namespace {

using Words = std::span<std::uint32_t>;

// The pixels of a pass: every so many from the first on.
struct Pass {
    std::int32_t left;
    std::int32_t columnStep;
    std::int32_t top;
    std::int32_t lineStep;
};

constexpr std::array<Pass, 1> kOnePass = {{{0, 1, 0, 1}}};
constexpr std::array<Pass, 7> kInterlacedPasses = {{{0, 8, 0, 8},
                                                    {4, 8, 0, 8},
                                                    {0, 4, 4, 8},
                                                    {2, 4, 0, 4},
                                                    {0, 2, 2, 4},
                                                    {1, 2, 0, 2},
                                                    {0, 1, 1, 2}}};

class LibPngPicture : public PngPicture {
public:
    LibPngPicture(std::span<const std::byte> bytes, PngWanted wanted)
        : reader_(bytes, wanted), wanted_(wanted) {}

    [[nodiscard]] std::int32_t Width() const override { return reader_.Head().width; }
    [[nodiscard]] std::int32_t Height() const override { return reader_.Head().height; }
    [[nodiscard]] bool IsTrueColour() const override {
        constexpr unsigned kMask = PNG_COLOR_MASK_COLOR | PNG_COLOR_MASK_PALETTE;
        return (reader_.Head().colorType & kMask) == PNG_COLOR_MASK_COLOR;
    }

    std::int32_t ReadColours(Words words, std::int32_t pitch) override {
        Check(wanted_ == PngWanted::Colours || IsTrueColour(), words, pitch);
        if (std::exchange(isRead_, true)) {
            return 0;
        }
        reader_.Start(PngLine::Words);
        if (!reader_.Head().interlaced) {
            return ReadWholeLines(words, pitch);
        }
        std::vector<std::uint32_t> line(static_cast<std::size_t>(Width()));
        return ReadPasses(kInterlacedPasses, std::as_writable_bytes(std::span(line)), words, pitch,
                          [&line](std::size_t x) { return line[x]; });
    }

    std::int32_t ReadIndexed(std::span<const std::uint32_t, 256> colors, Words words,
                             std::int32_t pitch) override {
        Check(wanted_ == PngWanted::Indices && !IsTrueColour(), words, pitch);
        if (std::exchange(isRead_, true)) {
            return 0;
        }
        reader_.Start(PngLine::Indices);
        std::vector<std::uint8_t> line(static_cast<std::size_t>(Width()));
        const std::span<const Pass> passes =
            reader_.Head().interlaced ? std::span<const Pass>(kInterlacedPasses) : kOnePass;
        return ReadPasses(passes, std::as_writable_bytes(std::span(line)), words, pitch,
                          [&line, colors](std::size_t x) { return colors[line[x]]; });
    }

private:
    void Check(bool isRightCall, Words words, std::int32_t pitch) const {
        if (!isRightCall) {
            throw RunTimeError(RunTimeErrorKind::InvalidPropertyValue,
                               "the PNG was opened for other pixels");
        }
        const std::uint64_t needed = static_cast<std::uint64_t>(Height() - 1) *
                                         static_cast<std::uint64_t>(pitch < 0 ? 0 : pitch) +
                                     static_cast<std::uint64_t>(Width());
        if (pitch < Width() || words.size() < needed) {
            throw RunTimeError(RunTimeErrorKind::SubscriptOutOfRange, "no room for the PNG");
        }
    }

    [[nodiscard]] Words LineOf(Words words, std::int32_t pitch, std::int32_t y) const {
        return words.subspan(static_cast<std::size_t>(y) * static_cast<std::size_t>(pitch),
                             static_cast<std::size_t>(Width()));
    }

    // Straight into the words.
    std::int32_t ReadWholeLines(Words words, std::int32_t pitch) {
        for (std::int32_t y = 0; y < Height(); ++y) {
            if (!reader_.ReadLine(std::as_writable_bytes(LineOf(words, pitch, y)))) {
                return y;
            }
        }
        return Height();
    }

    // Each line goes to `line` first; wordAt(x) is then the word of its pixel x.
    template <typename WordAt>
    std::int32_t ReadPasses(std::span<const Pass> passes, std::span<std::byte> line, Words words,
                            std::int32_t pitch, WordAt wordAt) {
        for (const Pass& pass : passes) {
            if (pass.left >= Width()) {
                continue;  // no pixels, and so no lines
            }
            for (std::int32_t y = pass.top; y < Height(); y += pass.lineStep) {
                if (!reader_.ReadLine(line)) {
                    // The last pass has what was missing of the lines above.
                    return &pass == &passes.back() ? y : 0;
                }
                const Words out = LineOf(words, pitch, y);
                const auto step = static_cast<std::size_t>(pass.columnStep);
                std::size_t x = 0;
                for (auto at = static_cast<std::size_t>(pass.left); at < out.size(); at += step) {
                    out[at] = wordAt(x++);
                }
            }
        }
        return Height();
    }

    PngReader reader_;
    PngWanted wanted_;
    bool isRead_ = false;
};

}  // namespace

std::unique_ptr<PngPicture> LibPngPictures::Open(std::span<const std::byte> bytes,
                                                 PngWanted wanted) const {
    return std::make_unique<LibPngPicture>(bytes, wanted);
}

}  // namespace scenara
