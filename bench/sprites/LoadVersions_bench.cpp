// SPDX-License-Identifier: MIT
//
// The first load of the same pictures from an archive of version 1 and from archives of version 2
// in several codings, PNG through libpng among them; each on one processor. Before anything is
// timed the pictures of all archives of a set are compared.
//
// The sets: the generated pictures as they are, and folded into 32 colours for LZ5.
#include <array>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/posix/ProgramFolder.h"
#include "platform/soft/SoftDevice.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "samplemaker/Sff2Pictures.h"
#include "samplemaker/Sff2Writer.h"
#include "sprites/LoadArchive_bench.h"
#include "sprites/PcxLines.h"
#include "support/SamplePictures.h"
#include "support/SdlStageLoader.h"

namespace scenara::bench {
namespace {

using samplemaker::IndexedPicture;

constexpr std::uint8_t kFewColours = 32;

IndexedPicture PictureOf(const SamplePicture& sample, bool few) {
    IndexedPicture picture;
    picture.width = static_cast<int>(sample.bytesPerLine);
    picture.height = static_cast<int>(sample.height);
    picture.pixels.resize(sample.PixelsInMemory());
    PcxLines(sample.Packed(), true).Next(picture.pixels);
    for (std::uint8_t& index : picture.pixels) {
        if (few && index > 0) {
            index = static_cast<std::uint8_t>(1 + index % (kFewColours - 1));
        }
    }
    for (std::size_t i = 0; i < picture.palette.size(); ++i) {
        const std::uint32_t word = sample.colors[i];
        picture.palette[i] = {static_cast<std::uint8_t>(word >> 16U),
                              static_cast<std::uint8_t>(word >> 8U),
                              static_cast<std::uint8_t>(word)};
    }
    return picture;
}

std::vector<std::byte> Version1(const std::vector<IndexedPicture>& pictures) {
    std::vector<samplemaker::Sff1Subfile> subfiles;
    for (const IndexedPicture& picture : pictures) {
        samplemaker::Sff1Subfile subfile;
        subfile.image = static_cast<std::int16_t>(subfiles.size());
        subfile.data = samplemaker::WritePcx(picture);
        subfiles.push_back(std::move(subfile));
    }
    return samplemaker::WriteSff1(subfiles);
}

std::vector<std::byte> Version2(const std::vector<IndexedPicture>& pictures,
                                samplemaker::Sff2Coding coding) {
    samplemaker::Sff2Archive archive;
    for (const IndexedPicture& picture : pictures) {
        samplemaker::Sff2Sprite sprite = samplemaker::Sff2SpriteOf(picture, coding);
        sprite.image = static_cast<std::uint16_t>(archive.sprites.size());
        sprite.palette = sprite.image;
        archive.sprites.push_back(std::move(sprite));
        samplemaker::Sff2Palette palette = samplemaker::Sff2PaletteOf(picture.palette);
        palette.item = static_cast<std::uint16_t>(archive.palettes.size());
        archive.palettes.push_back(std::move(palette));
    }
    return samplemaker::WriteSff2(archive);
}

enum class Kind { Version1, Packed, Png };

// The files of a set, in the order of Kind.
struct ArchiveSet {
    explicit ArchiveSet(bool few) {
        std::vector<IndexedPicture> pictures;
        for (const SamplePicture& sample : GeneratedPictures().pictures) {
            pictures.push_back(PictureOf(sample, few));
        }
        Write(Version1(pictures));
        Write(
            Version2(pictures, few ? samplemaker::Sff2Coding::Lz5 : samplemaker::Sff2Coding::Rle8));
        Write(Version2(pictures, samplemaker::Sff2Coding::Png8));
        for (const std::string& path : paths) {
            if (ChecksumOf(path) != ChecksumOf(paths.front())) {
                throw std::runtime_error("other pictures: " + path);
            }
        }
    }

    [[nodiscard]] const std::string& Path(Kind kind) const {
        return paths.at(static_cast<std::size_t>(kind));
    }

private:
    void Write(const std::vector<std::byte>& bytes) {
        paths.push_back(folder.Path() + std::to_string(paths.size()) + ".sff");
        std::ofstream file(paths.back(), std::ios::binary);
        file.write(reinterpret_cast<const char*>(bytes.data()),
                   static_cast<std::streamsize>(bytes.size()));
    }

    static std::uint64_t ChecksumOf(const std::string& path) {
        SoftDevice device;
        StageModel model;
        LoadInto(model, device, path, 0);
        std::uint64_t sum = model.Sprites.size();
        for (const SpriteEntry& sprite : model.Sprites) {
            const LockedPixels locked = sprite.texture->LockRect();
            sum = sum * 31 + PictureChecksum(locked.words.data(),
                                             static_cast<std::size_t>(sprite.width),
                                             static_cast<std::size_t>(sprite.height),
                                             static_cast<std::size_t>(locked.pitch));
            sprite.texture->UnlockRect();
        }
        return sum;
    }

    TemporaryFolder folder;
    std::vector<std::string> paths;
};

template <bool kFew>
const ArchiveSet& SetOf() {
    static const ArchiveSet set(kFew);
    return set;
}

template <bool kFew, Kind kKind>
void Load(benchmark::State& state) {
    try {
        const std::string& path = SetOf<kFew>().Path(kKind);
        for ([[maybe_unused]] const auto iteration : state) {
            SoftDevice device;
            StageModel model;
            LoadInto(model, device, path, 0);
        }
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
#define VERSION_ROW(few, kind, name) \
    BENCHMARK_TEMPLATE(Load, few, kind)->Name("Load/" name)->Unit(benchmark::kMillisecond)

VERSION_ROW(false, Kind::Version1, "Version1/256");
VERSION_ROW(false, Kind::Packed, "Rle8/256");
VERSION_ROW(false, Kind::Png, "Png8/256");
VERSION_ROW(true, Kind::Version1, "Version1/32");
VERSION_ROW(true, Kind::Packed, "Lz5/32");
VERSION_ROW(true, Kind::Png, "Png8/32");
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
