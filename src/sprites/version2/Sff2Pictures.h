// SPDX-License-Identifier: MIT
//
// Sff2Pictures: the picture of one sprite of a version 2 archive, from the file to a texture.
//
// The data of a sprite: raw pictures are their rows from the top, of 8 bits indices, of 24 red,
// green, blue, of 32 red, green, blue, alpha. In all other codings 4 bytes come first, the size
// when unpacked, which is wrong in many files and not looked at. Then RLE8, RLE5 and LZ5 have
// indices in packed form (Sff2Unpack.h), the PNG codings a whole PNG file. Of a PNG8 the indices
// count, not its own palette.
//
// Indices take their colours from the sprite's palette; pixels of index 0 have alpha 0 and keep its
// colour. True colours bring their own alpha and have no palette.
//
// Bad input: a picture is dropped, with its coding and what is wrong, where its own data cannot
// fill it. Where it is the file that ends, the pixels that are there are kept, and the rest is
// colour 0, or transparent. Before memory is taken for a picture, its bytes must be able to yield
// it, and data that claim very much are counted. A PNG can only be tried (its reader has a limit of
// its own), and damaged pictures are tried up to a sum of their textures. Sprites that lie over
// each other end the load with a message: what all share of the file may be read and shown many
// times, but not without bound.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "sprites/ArchiveUse.h"
#include "sprites/FileBytes.h"
#include "sprites/PictureLoad.h"
#include "sprites/SpriteArchive.h"
#include "sprites/TextureBudget.h"
#include "sprites/TextureLock.h"
#include "sprites/version2/Sff2Nodes.h"
#include "sprites/version2/Sff2Palettes.h"
#include "sprites/version2/Sff2Unpack.h"

namespace scenara {

class PngPicture;

// As the archive has them.
struct SpriteNumbers {
    Long group = 0;
    Long image = 0;
};

// A sprite's picture on its way.
class Sff2Load final : public PictureLoad {
public:
    explicit Sff2Load(const Sff2SpriteNode& node, Sff2Palette& palette);
    ~Sff2Load() override;

    [[nodiscard]] std::size_t HeldBytes() const override { return dataSize_; }
    [[nodiscard]] std::uint64_t TextureBytes() const override { return textureBytes_; }
    [[nodiscard]] std::uint64_t Work() const override;

private:
    friend class Sff2Pictures;

    void DoDecode() override;
    void DecodeRaw();
    void DecodePacked();
    void DecodePng();
    [[nodiscard]] std::span<const std::byte> Packed() const;
    void CheckUnpacked(const Sff2Unpacked& result, std::size_t wanted) const;
    // From this line on, of which `done` pixels are whole, there is nothing in the file.
    void FillFrom(std::int32_t line, std::int32_t done);
    void EndsEarly();
    void EndsAfter(std::uint64_t pixels);

    Sff2SpriteNode node_;
    Sff2Palette& palette_;
    ColorTable colors_;
    FileBytes data_;
    std::size_t dataSize_ = 0;  // also when they were dropped
    bool cut_ = false;          // the file ends in them
    std::int32_t width_ = 0;
    std::int32_t height_ = 0;
    bool trueColor_ = false;
    std::unique_ptr<PngPicture> png_;
    std::shared_ptr<Direct3DTexture8> texture_;
    std::optional<TextureLock> lock_;
    std::uint64_t textureBytes_ = 0;
    std::uint64_t countedBytes_ = 0;    // of them, against the archive's own limit
    std::vector<std::string> remarks_;  // on a picture that is shown
    bool overused_ = false;
};

class Sff2Pictures {
public:
    // What the source names outlives it.
    Sff2Pictures(const ArchiveSource& source, const Sff2Header& header, const ArchiveRules& rules);

    // Which picture it is of those that stand there.
    enum class Picture {
        First,
        InOtherColors,
        BeyondNumbers,  // its sprite cannot be named, so it is none
    };

    // The picture that stands at `node`, in the colours of `palette`. None: it can be begun once
    // those before it are finished.
    [[nodiscard]] std::unique_ptr<Sff2Load> Begin(const Sff2SpriteNode& node, Sff2Palette& palette,
                                                  Picture picture);
    // In the order of Begin, for a sprite of these numbers. False: reported, if it is a fault.
    [[nodiscard]] bool Finish(Sff2Load& load, const SpriteNumbers& shownBy, SpritePicture& picture);

private:
    void Read(Sff2Load& load);
    [[nodiscard]] bool MakeTexture(Sff2Load& load, bool counts);
    static void CheckYield(const Sff2Load& load);
    void ReadData(Sff2Load& load);
    [[nodiscard]] std::uint64_t MostLost() const;

    ArchiveSource source_;
    Sff2Header header_;
    ArchiveRules rules_;
    TextureBudget textures_;
    ArchiveUse use_;
    std::size_t underWay_ = 0;
    std::uint64_t bytesUnderWay_ = 0;  // of textures
    std::uint64_t counted_ = 0;        // the same, of first pictures
    std::uint64_t lostBytes_ = 0;      // the same, of damaged ones
    bool stopped_ = false;             // no picture is begun any more
    bool saidOverused_ = false;
};

}  // namespace scenara
