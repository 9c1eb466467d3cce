// SPDX-License-Identifier: MIT
//
// The pictures that the benchmarks decode and load: drawn ones, and what a folder of real content
// holds.
//
// Each is a whole PCX file of 8 bits, 1 plane: header, run lengths, byte 12, palette. Archives
// leave the palette out where a picture shares the one before it; here it is put back, so that
// every program gets the same bytes. Pictures that are damaged or of another kind are left out.
// Both sets are made at the first call and live as long as the program.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

#include "sprites/PcxUnpack.h"

namespace scenara::bench {

struct SamplePicture {
    std::string name;  // for messages: "stages/kfm.sff 3"
    std::size_t width = 0;
    std::size_t height = 0;
    std::size_t bytesPerLine = 0;  // in the file, and pixels per line in memory
    std::vector<std::byte> file;
    ColorTable colors{};  // the palette as texture words; index 0 keeps its colour with alpha 0

    // All behind the header; the run lengths end somewhere in it.
    [[nodiscard]] std::span<const std::byte> Packed() const;
    [[nodiscard]] std::size_t PixelsInMemory() const { return bytesPerLine * height; }
};

struct SampleSet {
    std::string name;  // "generated", "sampleData"
    std::vector<SamplePicture> pictures;
    std::size_t bytes = 0;   // of all files
    std::size_t pixels = 0;  // of all pictures in memory
};

const SampleSet& GeneratedPictures();

// Every picture of every archive of version 1 below the folder that the macro SCENARA_SAMPLE_DATA
// named at build time; empty when it named none or the folder is not there.
const SampleSet& SampleDataPictures();

// Those archives, in the order of their paths.
std::vector<std::filesystem::path> SampleArchives();

}  // namespace scenara::bench
