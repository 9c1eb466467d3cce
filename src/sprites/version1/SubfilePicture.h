// SPDX-License-Identifier: MIT
//
// SubfilePictures: the picture of one subfile, from the archive to a texture.
//
// The archive is read in two goes per picture (PCX header; then pixels and palette) into buffers
// that are used again for the next; no more of it is ever in memory. The palette is the last 768
// bytes of the subfile's data (SubfilePalette.h), kept from picture to picture for those that share
// it. Addition: a picture without a palette has that of the one before it.
//
// A length that goes past the end of the file, or reaches into the next subfile, is no error as
// long as the pixels are complete. Nothing is read that the picture could not need.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/Direct3D8.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "sprites/modFilePCX.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SubfilePalette.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr MessageKind kMessageNegativeLength{"negative-length", Severity::Warning};
inline constexpr MessageKind kMessageMissingPalette{"missing-palette", Severity::Warning};

class SubfilePictures {
public:
    // The first three outlive it.
    SubfilePictures(InputFile& archive, TextureMaker& device, Messages& messages,
                    const ViewOptions& options);

    // The picture of a subfile. Without `colors` it takes its
    // own palette or that of the picture before, as the subfile says. Its bytes are counted in
    // `use`. False on any failure; then the reason has been shown.
    [[nodiscard]] bool Load(const Subfile& subfile, ArchiveUse& use, PcxPicture& picture,
                            const PaletteBytes* colors = nullptr);

private:
    void ReadData(std::uint64_t start, std::uint64_t packed);
    // A picture of 256 colours takes its palette, whether or not its pixels can be had: the next
    // one may share it. False where it has none; then the picture may be whole all the same.
    [[nodiscard]] bool TakePalette(const Subfile& subfile, std::uint64_t end);
    void SayPaletteIsMissing(const Subfile& subfile);

    InputFile& archive_;
    Messages& messages_;
    ViewOptions options_;
    PcxDecoder decoder_;
    PcxHeader header_;
    std::vector<std::byte> data_;  // only grows; the picture's bytes are its first dataSize_
    std::size_t dataSize_ = 0;
    PaletteBytes palette_{};  // the last one that was taken
    bool havePalette_ = false;
};

}  // namespace scenara
