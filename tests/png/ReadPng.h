// SPDX-License-Identifier: MIT
//
// A PNG read into words with a margin, which must stay whole.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include <gtest/gtest.h>

#include "platform/png/LibPngPictures.h"
#include "support/PngBytes.h"

namespace scenara::test {

using PngWords = std::vector<std::uint32_t>;

// What no picture of the tests has.
inline constexpr std::uint32_t kUnread = 0x12345678;

struct ReadPng {
    std::int32_t width = 0;
    std::int32_t height = 0;
    std::int32_t lines = 0;
    PngWords pixels;  // without margin

    // The first `count` lines.
    [[nodiscard]] PngWords Lines(std::int32_t count) const {
        return {pixels.begin(), pixels.begin() + std::ptrdiff_t{count} * width};
    }
};

// Each index as a word that tells it apart.
[[nodiscard]] inline std::array<std::uint32_t, 256> IndexWords() {
    std::array<std::uint32_t, 256> words{};
    for (std::size_t i = 0; i < words.size(); ++i) {
        words.at(i) = 0xAB000000U + static_cast<std::uint32_t>(i);
    }
    return words;
}

// `wanted` as it is asked for; of true-colour pictures there are only colours. The bytes end where
// their memory ends, so that reading on does not stay unseen when addresses are checked.
[[nodiscard]] inline ReadPng Read(std::span<const std::byte> file, PngWanted wanted,
                                  std::int32_t margin = 3) {
    const PngBytes bytes(file.begin(), file.end());
    const LibPngPictures pictures;
    const auto picture = pictures.Open(bytes, wanted);
    ReadPng read{picture->Width(), picture->Height(), 0, {}};
    const std::int32_t pitch = read.width + margin;
    const auto lineWords = static_cast<std::size_t>(pitch);
    PngWords words(lineWords * static_cast<std::size_t>(read.height), kUnread);
    const std::span<std::uint32_t> room =
        std::span(words).first(words.size() - static_cast<std::size_t>(margin));
    const auto indexWords = IndexWords();
    read.lines = wanted == PngWanted::Indices && !picture->IsTrueColour()
                     ? picture->ReadIndexed(indexWords, room, pitch)
                     : picture->ReadColours(room, pitch);
    for (std::size_t at = 0; at < words.size(); at += lineWords) {
        const auto line = std::span(words).subspan(at, lineWords);
        const auto pixels = line.first(static_cast<std::size_t>(read.width));
        read.pixels.insert(read.pixels.end(), pixels.begin(), pixels.end());
        const auto beside = line.last(static_cast<std::size_t>(margin));
        EXPECT_EQ(std::ranges::count(beside, kUnread), margin) << "written beside the picture";
    }
    return read;
}

}  // namespace scenara::test
