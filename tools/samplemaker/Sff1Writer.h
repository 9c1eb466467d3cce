// SPDX-License-Identifier: MIT
//
// Writes MUGEN sprite archives of version 1 (.sff) into memory.
//
//   offset  size  file header (512 bytes)            offset  size  subfile header (32 bytes)
//   0       12    "ElecbyteSpr", 0                   0       4     offset of the next subfile
//   12      4     version, lowest part first         4       4     length of the data, 0: linked
//   16      4     number of groups                   8       4     axis x, axis y (signed)
//   20      4     number of images                   12      4     group, image
//   24      4     offset of the first subfile        16      2     index of the subfile linked to
//   28      4     size of a subfile header           18      1     1: palette of the one before
//   32      1     palette type: 1 shared             19      13    comment
//
// The subfiles form a chain through their next offsets; a subfile's index is its place in the
// chain. Where they lie in the file is free, and so are bytes between them. Everything of that can
// be chosen, so that readers can be tried with what real archives hold and with what they should
// not. What the fields cannot hold raises std::invalid_argument.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace scenara::samplemaker {

struct Sff1Subfile {
    std::int16_t group = 0;
    std::int16_t image = 0;
    std::int16_t axisX = 0;
    std::int16_t axisY = 0;
    std::vector<std::byte> data{};  // a PCX file, written as it is; empty: a linked subfile
    std::int16_t linkIndex = 0;     // which subfile's picture a linked one shows
    bool samePalette = false;
    std::string comment{};           // up to 13 bytes
    std::int32_t lengthSurplus = 0;  // added to the length field: 768 counts a palette left out
    std::size_t gapBefore = 0;       // bytes between this subfile and what lies before it
};

enum class LastNext { Zero, EndOfFile };

struct Sff1Options {
    std::array<std::uint8_t, 4> version = {0, 1, 0, 1};
    std::uint8_t paletteType = 1;
    std::size_t firstGap = 0;  // bytes between the file header and what lies first
    std::uint8_t gapValue = 0;
    std::vector<std::size_t> fileOrder;  // which subfile lies first, second, …; empty: as chained
    LastNext lastNext = LastNext::Zero;
    std::optional<std::uint32_t> groups;  // what the header says instead of the true numbers
    std::optional<std::uint32_t> images;
};

std::vector<std::byte> WriteSff1(const std::vector<Sff1Subfile>& subfiles,
                                 const Sff1Options& options = {});

}  // namespace scenara::samplemaker
