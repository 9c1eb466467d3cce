// SPDX-License-Identifier: MIT
//
// Any bytes as a PNG, read for its indices and for its colours: as they are, which a wrong checksum
// soon ends, and with checksums set right.
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "base/RunTimeError.h"
#include "platform/png/LibPngPictures.h"
#include "support/FuzzChecks.h"
#include "support/PngBytes.h"

namespace {

using namespace scenara;

// Pictures with more pixels are only opened, so that an input does not take long.
constexpr std::int64_t kMostPixels = 1 << 20;

constexpr std::uint32_t kUnread = 0x12345678;
constexpr std::int32_t kMargin = 2;

void ReadLines(PngPicture& picture, PngWanted wanted) {
    const std::int32_t width = picture.Width();
    const std::int32_t pitch = width + kMargin;
    std::vector<std::uint32_t> words(
        static_cast<std::size_t>(pitch) * static_cast<std::size_t>(picture.Height()), kUnread);
    const std::array<std::uint32_t, 256> colors{};
    const std::int32_t lines = wanted == PngWanted::Indices && !picture.IsTrueColour()
                                   ? picture.ReadIndexed(colors, words, pitch)
                                   : picture.ReadColours(words, pitch);
    test::Require(lines >= 0 && lines <= picture.Height(), "no more lines than there are");
    for (std::size_t at = 0; at < words.size(); at += static_cast<std::size_t>(pitch)) {
        for (std::size_t beside = 0; beside < kMargin; ++beside) {
            test::Require(words[at + static_cast<std::size_t>(width) + beside] == kUnread,
                          "nothing is written beside the picture");
        }
    }
}

void Open(std::span<const std::byte> bytes, PngWanted wanted) {
    const LibPngPictures pictures;
    try {
        const std::unique_ptr<PngPicture> picture = pictures.Open(bytes, wanted);
        test::Require(picture->Width() >= 1 && picture->Width() <= kMostPngPixels &&
                          picture->Height() >= 1 && picture->Height() <= kMostPngPixels,
                      "sizes are in range");
        if (std::int64_t{picture->Width()} * picture->Height() <= kMostPixels) {
            ReadLines(*picture, wanted);
        }
    } catch (const RunTimeError& error) {
        test::Require(*error.what() != '\0', "a failure says why");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const auto bytes = std::as_bytes(std::span(data, size));
    const test::PngBytes right = test::WithRightChecksums(bytes);
    for (const PngWanted wanted : {PngWanted::Indices, PngWanted::Colours}) {
        Open(bytes, wanted);
        Open(right, wanted);
    }
    return 0;
}
