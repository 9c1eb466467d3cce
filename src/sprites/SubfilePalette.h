// SPDX-License-Identifier: MIT
//
// SubfilePalette: the 256 colours at the end of a subfile's data.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

#include "platform/Files.h"
#include "sprites/SffArchive.h"
#include "sprites/modFilePCX.h"

namespace scenara {

// 256 times red, green, blue.
using PaletteBytes = std::array<std::byte, kPcxPaletteSize>;

// The palette at the end of the data of the subfile at `position`. False: the subfile or the file
// does not have all of it; what is missing is black.
[[nodiscard]] bool ReadSubfilePalette(InputFile& archive, const SubfileHeader& subfile,
                                      std::uint32_t position, PaletteBytes& palette);

// Addition: whether the bytes at `paletteStart` can be the palette of a picture whose data begin at
// `dataStart`: the mark of a palette stands before them, or the pixels end before them. Other bytes
// are the picture's own pixels or those of another subfile. Places are those in the archive.
//
// `read`: what was read of the data already, from their first byte on; what is needed beyond that
// is read here.
[[nodiscard]] bool IsPaletteAt(InputFile& archive, const PcxHeader& header, std::uint64_t dataStart,
                               std::uint64_t paletteStart, std::span<const std::byte> read);

// Addition: whether the subfile at `position` is a picture that brings a palette. It is not where
// IsPaletteAt says so, nor with other than 256 colours.
[[nodiscard]] bool BringsPalette(InputFile& archive, const SubfileHeader& subfile,
                                 std::uint32_t position);

}  // namespace scenara
