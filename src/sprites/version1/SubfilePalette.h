// SPDX-License-Identifier: MIT
//
// SubfilePalette: the 256 colours at the end of a subfile's data.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

#include "platform/Files.h"
#include "sprites/PaletteBytes.h"
#include "sprites/modFilePCX.h"
#include "sprites/version1/SffArchive.h"

namespace scenara {

// The PCX header of a subfile; nothing where the file ends in it.
[[nodiscard]] std::optional<PcxHeader> ReadSubfilePcxHeader(InputFile& archive,
                                                            const Subfile& subfile);

// Where the data of a picture lie in the archive, without the PCX header, and what was read of them
// already, from their first byte on.
struct PcxPlace {
    std::uint64_t start = 0;
    std::uint64_t end = 0;
    std::span<const std::byte> read;
};

// The last 768 bytes of a picture's data. False: the file does not have all of them; what is
// missing is black.
//
// Addition: with the picture's header they are looked at first. They are a palette where the mark
// of one stands before them, or where the pixels end before them; other bytes are the picture's own
// pixels or those of another subfile. These are false, too, and leave `palette` as it is.
[[nodiscard]] bool ReadPalette(InputFile& archive, const PcxPlace& data, const PcxHeader* lookedAt,
                               PaletteBytes& palette);

// The same of a subfile of which nothing was read yet. With a look at them, one that is no picture
// of 256 colours has none.
[[nodiscard]] bool ReadSubfilePalette(InputFile& archive, const Subfile& subfile, bool looksAtIt,
                                      PaletteBytes& palette);

}  // namespace scenara
