// SPDX-License-Identifier: MIT
//
// Small PNGs to damage, their chunks, and what comes of reading them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "RandomPng.h"
#include "ReadPng.h"
#include "base/RunTimeError.h"

namespace scenara::test {

using Chunks = std::vector<PngChunk>;

// Kinds whose lines are packed in different ways.
[[nodiscard]] inline std::vector<PngShape> SomeShapes() {
    return {{11, 13, 8, 3, false}, {11, 13, 2, 3, false}, {11, 13, 8, 6, false},
            {11, 13, 8, 2, true},  {11, 13, 4, 0, true},  {11, 13, 16, 4, false}};
}

// A message that people can read.
inline void ExpectReadable(const RunTimeError& error) {
    const std::string text = error.what();
    EXPECT_TRUE(std::ranges::all_of(text, [](char c) { return c >= ' ' && c <= '~'; })) << text;
    EXPECT_LT(text.size(), 160U);
}

// Nothing when the file is refused, by a clear message.
[[nodiscard]] inline std::optional<ReadPng> TryRead(std::span<const std::byte> file,
                                                    PngWanted wanted) {
    try {
        return Read(file, wanted);
    } catch (const RunTimeError& error) {
        ExpectReadable(error);
        return std::nullopt;
    }
}

inline void Append(Chunks& chunks, const Chunks& more) {
    chunks.insert(chunks.end(), more.begin(), more.end());
}

[[nodiscard]] inline PngBytes Joined(PngBytes first, const PngBytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

// 20 x 30 pixels.
[[nodiscard]] inline RandomPng IndexedPng() {
    std::mt19937 random(4);
    return RandomPng({20, 30, 8, 3, false}, random);
}

[[nodiscard]] inline RandomPng RgbPng() {
    std::mt19937 random(5);
    RandomPng png({20, 30, 8, 2, false}, random);
    png.transparent.clear();
    return png;
}

// Header, pixels, end.
[[nodiscard]] inline Chunks ChunksOf(const RandomPng& png, const PngBytes& packed) {
    Chunks chunks = {PngHeader(png.shape)};
    Append(chunks, png.Colours());
    chunks.push_back({"IDAT", packed});
    chunks.push_back({"IEND", {}});
    return chunks;
}

[[nodiscard]] inline Chunks ChunksOf(const RandomPng& png) {
    return ChunksOf(png, Deflated(PngLines(png.shape, png.samples)));
}

}  // namespace scenara::test
