// SPDX-License-Identifier: MIT
//
// SubfilePictures: the picture of one subfile, from the archive to a texture.
//
// The archive is read in two goes per picture (PCX header; then pixels and palette); no more of it
// is in memory than the pictures under way take. The palette is the last 768 bytes of the subfile's
// data (SubfilePalette.h), kept from picture to picture for those that share it. Addition: a
// picture without a palette has that of the one before it.
//
// A length that goes past the end of the file, or reaches into the next subfile, is no error as
// long as the pixels are complete. Nothing is read that the picture could not need.
//
// What one picture takes from those before it, by their order: the palette, which is known once
// they were begun; the key colour of pictures of several planes, and the room for textures, which
// are known once they were finished.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "platform/Direct3D8.h"
#include "platform/Files.h"
#include "platform/Messages.h"
#include "sprites/ArchiveUse.h"
#include "sprites/FileBytes.h"
#include "sprites/PictureLoad.h"
#include "sprites/TextureBudget.h"
#include "sprites/modFilePCX.h"
#include "sprites/version1/SffArchive.h"
#include "sprites/version1/SubfilePalette.h"
#include "stage/ViewOptions.h"

namespace scenara {

inline constexpr MessageKind kMessageNegativeLength{"negative-length", Severity::Warning};
inline constexpr MessageKind kMessageMissingPalette{"missing-palette", Severity::Warning};

// A subfile's picture on its way.
class SubfileLoad final : public PictureLoad {
public:
    [[nodiscard]] std::size_t HeldBytes() const override { return dataSize_; }
    [[nodiscard]] std::uint64_t TextureBytes() const override { return textureBytes_; }

private:
    friend class SubfilePictures;

    void DoDecode() override {
        PcxDecoder::Decode(task_);
        data_.Drop();
    }

    Subfile subfile_;
    PcxHeader header_;
    FileBytes data_;
    std::size_t dataSize_ = 0;  // also when they were dropped
    std::uint64_t textureBytes_ = 0;
    bool hasItsPalette_ = true;
    bool lacksAny_ = false;  // nor is there one before it
    PcxTask task_;
};

class SubfilePictures {
public:
    // The first three outlive it.
    SubfilePictures(InputFile& archive, TextureMaker& device, Messages& messages,
                    const ViewOptions& options);

    // The picture of a subfile. Without `colors` it takes its own palette or that of the picture
    // before, as the subfile says. None: it can be begun once those before it are finished.
    [[nodiscard]] std::unique_ptr<SubfileLoad> Begin(const Subfile& subfile,
                                                     const PaletteBytes* colors = nullptr);
    // In the order of Begin. The picture's bytes are counted in `use`. False on any failure; then
    // the reason has been shown.
    [[nodiscard]] bool Finish(SubfileLoad& load, ArchiveUse& use, PcxPicture& picture);
    // Instead of that: the picture is not wanted.
    void Drop(SubfileLoad& load);

    // Pictures that were begun and not finished.
    [[nodiscard]] std::size_t UnderWay() const { return underWay_; }

private:
    void Read(SubfileLoad& load, const PaletteBytes* colors);
    void ReadData(SubfileLoad& load, std::uint64_t start, std::uint64_t packed);
    // A picture of 256 colours takes its palette, whether or not its pixels can be had: the next
    // one may share it. False where it has none; then the picture may be whole all the same.
    [[nodiscard]] bool TakePalette(const SubfileLoad& load, std::uint64_t end);
    void SayPaletteIsMissing(const SubfileLoad& load);
    void End(SubfileLoad& load);

    InputFile& archive_;
    Messages& messages_;
    ViewOptions options_;
    TextureBudget textures_;
    PcxDecoder decoder_;
    std::size_t underWay_ = 0;
    PaletteBytes palette_{};  // the last one that was taken
    bool havePalette_ = false;
};

}  // namespace scenara
