// SPDX-License-Identifier: MIT
//
// PNGs of random pixels, and what they look like by the letter of the format.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <random>
#include <vector>

#include "support/PngBytes.h"

namespace scenara::test {

using PngColors = std::vector<std::array<std::uint8_t, 3>>;

struct RandomPng {
    PngShape shape;
    PngSamples samples;
    PngColors palette;
    PngSamples transparent;  // tRNS: alphas of a palette, or the samples of one colour

    RandomPng(const PngShape& ofShape, std::mt19937& random)
        : shape(ofShape), samples(RandomPngSamples(ofShape, random)) {
        if (shape.colorType == 3) {
            palette.resize(1 + random() % (1U << shape.bits));
            for (auto& color : palette) {
                color = {Any(random), Any(random), Any(random)};
            }
            for (std::size_t left = random() % (palette.size() + 1); left > 0; --left) {
                transparent.push_back(Any(random));
            }
        } else if (shape.colorType < 3 && random() % 2 == 0) {
            const auto channels = static_cast<std::ptrdiff_t>(shape.Channels());
            const auto pixel =
                samples.begin() +
                channels * static_cast<std::ptrdiff_t>(
                               random() % (samples.size() / static_cast<std::size_t>(channels)));
            transparent.assign(pixel, pixel + channels);
        }
    }

    // The chunks between header and pixels.
    [[nodiscard]] std::vector<PngChunk> Colours() const {
        std::vector<PngChunk> chunks;
        if (!palette.empty()) {
            chunks.push_back({"PLTE", {}});
            for (const auto& color : palette) {
                for (const std::uint8_t part : color) {
                    chunks.back().data.push_back(static_cast<std::byte>(part));
                }
            }
        }
        if (!transparent.empty()) {
            chunks.push_back({"tRNS", {}});
            for (const std::uint16_t value : transparent) {
                if (shape.colorType != 3) {
                    chunks.back().data.push_back(static_cast<std::byte>(value >> 8U));
                }
                chunks.back().data.push_back(static_cast<std::byte>(value));
            }
        }
        return chunks;
    }

    [[nodiscard]] PngBytes File() const { return PngFileOf(shape, Colours(), samples); }

    // As ARGB words.
    [[nodiscard]] std::vector<std::uint32_t> ColourWords() const {
        std::vector<std::uint32_t> words;
        const auto channels = static_cast<std::size_t>(shape.Channels());
        for (std::size_t at = 0; at < samples.size(); at += channels) {
            words.push_back(ColourAt(at));
        }
        return words;
    }

    // Of greys and palettes.
    [[nodiscard]] std::vector<std::uint8_t> Indices() const {
        std::vector<std::uint8_t> indices;
        const auto channels = static_cast<std::size_t>(shape.Channels());
        for (std::size_t at = 0; at < samples.size(); at += channels) {
            indices.push_back(
                static_cast<std::uint8_t>(shape.bits == 16 ? samples[at] >> 8U : samples[at]));
        }
        return indices;
    }

private:
    static std::uint8_t Any(std::mt19937& random) { return static_cast<std::uint8_t>(random()); }

    // A sample as one of 8 bits: the nearest.
    [[nodiscard]] std::uint32_t Scaled(std::uint16_t sample) const {
        const std::uint32_t most = (1U << shape.bits) - 1;
        return (std::uint32_t{sample} * 255U + most / 2) / most;
    }

    [[nodiscard]] std::uint32_t ColourAt(std::size_t at) const {
        if (shape.colorType == 3) {
            const std::size_t index = samples[at];
            std::uint32_t word = index < transparent.size() ? transparent[index] : 255U;
            for (std::size_t part = 0; part < 3; ++part) {
                word = word << 8U | (index < palette.size() ? palette[index].at(part) : 0U);
            }
            return word;
        }
        const bool hasColours = (shape.colorType & 2) != 0;
        const std::size_t parts = hasColours ? 3 : 1;
        std::uint32_t word = 255;
        if ((shape.colorType & 4) != 0) {
            word = Scaled(samples[at + parts]);
        } else if (!transparent.empty()) {
            bool isSame = true;
            for (std::size_t part = 0; part < parts; ++part) {
                isSame = isSame && samples[at + part] == transparent[part];
            }
            word = isSame ? 0 : 255;
        }
        for (std::size_t part = 0; part < 3; ++part) {
            word = word << 8U | Scaled(samples[at + (hasColours ? part : 0)]);
        }
        return word;
    }
};

}  // namespace scenara::test
