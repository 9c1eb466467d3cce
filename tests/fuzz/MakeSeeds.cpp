// SPDX-License-Identifier: MIT
//
// fuzz-seeds FOLDER: what the fuzzers of binary formats start from, made by the sample maker's
// writers: one picture of each PCX and PNG kind, archives of both versions with each feature, and
// packed pixels.
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <random>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "samplemaker/Sff2Packing.h"
#include "sprites/Sff2Parts.h"
#include "support/PngBytes.h"

namespace {

using namespace scenara::samplemaker;
namespace fs = std::filesystem;

void Write(const fs::path& path, const std::vector<std::byte>& bytes) {
    fs::create_directories(path.parent_path());
    std::ofstream file(path, std::ios::binary);
    file.exceptions(std::ios::badbit | std::ios::failbit);
    file.write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}

IndexedPicture Picture(int width, int height, int colors) {
    IndexedPicture picture{width, height, {}, {}};
    for (int i = 0; i < width * height; ++i) {
        picture.pixels.push_back(static_cast<std::uint8_t>(i / 5 % colors));
    }
    for (std::size_t i = 0; i < picture.palette.size(); ++i) {
        picture.palette[i] = {static_cast<std::uint8_t>(i), static_cast<std::uint8_t>(i * 3), 128};
    }
    return picture;
}

void WritePictures(const fs::path& folder) {
    const PcxOptions raw{.runLengths = false};
    const PcxOptions odd{.runBreaks = RunBreaks::Nowhere, .bytesPerLine = 21, .padding = 200};
    Write(folder / "bits8", WritePcx(Picture(20, 9, 256)));
    Write(folder / "bits8-odd-lines", WritePcx(Picture(20, 9, 200), odd));
    Write(folder / "bits8-raw", WritePcx(Picture(20, 9, 256), raw));
    Write(folder / "bits1", WritePcx(Picture(20, 9, 2), {}, PcxDepth::Bits1));
    Write(folder / "bits2", WritePcx(Picture(20, 9, 4), {}, PcxDepth::Bits2));
    Write(folder / "bits4", WritePcx(Picture(20, 9, 16), {}, PcxDepth::Bits4));
    Write(folder / "bits1-planes4", WritePcx(Picture(20, 9, 16), {}, PcxDepth::Bits1Planes4));
    const TrueColourPicture colours{6, 4, std::vector<Rgb>(24, Rgb{10, 200, 30})};
    Write(folder / "planes3", WritePcx(colours));
    Write(folder / "planes4", WritePcx(colours, std::uint8_t{7}));
}

void WritePngs(const fs::path& folder) {
    using namespace scenara::test;
    std::mt19937 random(1);
    const std::vector<PngChunk> colours = {{"PLTE", PngBytes(48, std::byte{90})}};
    for (PngShape shape : PngShapes(9, 5)) {
        for (const bool interlaced : {false, true}) {
            shape.interlaced = interlaced;
            const bool hasPalette = shape.colorType == 3;
            const std::string name = "type" + std::to_string(shape.colorType) + "-bits" +
                                     std::to_string(shape.bits) + (interlaced ? "-interlaced" : "");
            Write(folder / name,
                  PngFileOf(shape, hasPalette ? std::span(colours) : std::span<const PngChunk>(),
                            RandomPngSamples(shape, random)));
        }
    }
    const PngShape shape{9, 5, 8, 2, false};
    const std::vector<PngChunk> between = {
        {"gAMA", PngBytes(4)}, {"tRNS", PngBytes(6)}, {"tEXt", PngBytesOf("Comment a text")}};
    std::vector<PngChunk> chunks = {PngHeader(shape)};
    chunks.insert(chunks.end(), between.begin(), between.end());
    const PngBytes stored = Deflated(PngLines(shape, RandomPngSamples(shape, random)), 0);
    for (const PngChunk& chunk : PngDataChunks(stored, 40)) {
        chunks.push_back(chunk);
    }
    Write(folder / "in-pieces", PngFileOf(chunks));
}

void WriteArchives(const fs::path& folder) {
    const PcxOptions noPalette{.trailingPalette = TrailingPalette::None};
    std::vector<Sff1Subfile> subfiles(4);
    subfiles[0].data = WritePcx(Picture(12, 8, 256));
    subfiles[1].image = 1;
    subfiles[1].samePalette = true;
    subfiles[1].data = WritePcx(Picture(7, 5, 90), noPalette);
    subfiles[1].lengthSurplus = 768;
    subfiles[2].group = 1;
    subfiles[2].linkIndex = 1;
    subfiles[3].group = 2;
    subfiles[3].data = WritePcx(TrueColourPicture{3, 3, std::vector<Rgb>(9)});
    Write(folder / "features", WriteSff1(subfiles));
    Write(folder / "other-order", WriteSff1(subfiles, {.firstGap = 9, .fileOrder = {3, 1, 0, 2}}));
    Write(folder / "many-images", WriteSff1(subfiles, {.images = 0x80000000U}));
    Write(folder / "version2", WriteSff1(subfiles, {.version = {0, 1, 0, 2}}));
    Write(folder / "one", WriteSff1({subfiles[0]}));
}

// A sprite at 0,0 with a palette of its own, and links to it that show it in the same colours and
// in others.
Sff2Archive WithLinks(const Sff2Sprite& sprite) {
    using namespace scenara::test;
    return {{NumberedPalette(1, 32), NumberedPalette(2, 4), LinkedPalette(3, 0)},
            {sprite, LinkedSprite(0, 1, 0, 2), LinkedSprite(1, 0, 1, 1)}};
}

void WriteNewArchives(const fs::path& folder) {
    using namespace scenara::test;
    const IndexedPicture indexed = Picture(12, 8, 32);
    const AlphaPicture sheer = SheerPicture(5, 4);
    Sff2Archive all = WithLinks(Sff2SpriteOf(indexed, Sff2Coding::Lz5));
    const auto write = [&](const std::string& name, Sff2Sprite sprite) {
        Write(folder / ("v2-" + name), WriteSff2(WithLinks(sprite)));
        const auto number = static_cast<unsigned>(all.sprites.size());
        sprite.flags = static_cast<std::uint16_t>(number % 2);
        all.sprites.push_back(Numbered(std::move(sprite), number / 2, number % 2, number % 3));
    };
    for (const Sff2Coding coding : kIndexedCodings) {
        write(NameOfCoding(coding), Sff2SpriteOf(indexed, coding));
    }
    for (const Sff2Coding coding : kColourCodings) {
        write(NameOfCoding(coding) + std::string(HasAlpha(coding) ? "-alpha" : "-colours"),
              Sff2SpriteOf(sheer, coding));
    }
    for (const std::uint32_t seed : {1U, 2U}) {
        for (const Sff2Coding coding : {Sff2Coding::Rle8, Sff2Coding::Rle5, Sff2Coding::Lz5}) {
            write(NameOfCoding(coding) + ("-choice" + std::to_string(seed)),
                  Sff2SpriteOf(indexed, coding, PackingChoice{seed}));
        }
    }
    Write(folder / "v2-all", WriteSff2(all));
    Sff2Options other;
    other.version = kSff200;
    other.parts = {Sff2Part::Tdata, Sff2Part::Sprites, Sff2Part::Ldata, Sff2Part::Palettes};
    other.palettesLast = true;
    Write(folder / "v2-other-order", WriteSff2(all, other));
    other.spritesNumber = 0x80000000U;
    Write(folder / "v2-many-sprites", WriteSff2(all, other));
}

// As sff2unpack_fuzz.cpp takes them: the packing, how many pixels, the packed bytes.
void WritePacked(const fs::path& path, int packing, std::size_t pixels,
                 const std::vector<std::byte>& packed) {
    std::vector<std::byte> bytes = {static_cast<std::byte>(packing), static_cast<std::byte>(pixels),
                                    static_cast<std::byte>(pixels >> 8U)};
    bytes.insert(bytes.end(), packed.begin(), packed.end());
    Write(path, bytes);
}

// The shortest bytes, and any that mean the same.
void WritePackedPixels(const fs::path& folder) {
    for (const std::uint32_t seed : {0U, 1U, 2U}) {
        const std::string suffix = seed == 0 ? "" : "-varied" + std::to_string(seed);
        const PackingChoice choice{.seed = seed};
        const auto all = Picture(40, 30, 256).pixels;
        WritePacked(folder / ("rle8" + suffix), 0, all.size(), PackRle8(all, choice));
        const auto few = Picture(60, 35, 32).pixels;
        WritePacked(folder / ("rle5" + suffix), 1, few.size(), PackRle5(few, choice));
        WritePacked(folder / ("lz5" + suffix), 2, few.size(), PackLz5(few, choice));
    }
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::cerr << "Usage: fuzz-seeds FOLDER\n";
        return 2;
    }
    try {
        WritePictures(fs::path(argv[1]) / "pcx");
        WritePngs(fs::path(argv[1]) / "png");
        for (const char* target : {"archive", "charsff"}) {
            WriteArchives(fs::path(argv[1]) / target);
            WriteNewArchives(fs::path(argv[1]) / target);
        }
        WritePackedPixels(fs::path(argv[1]) / "sff2unpack");
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
    return 0;
}
