// SPDX-License-Identifier: MIT
#include "support/SamplePictures.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>
#include <utility>

#include "base/ByteReader.h"
#include "base/RunTimeError.h"
#include "samplemaker/PcxWriter.h"
#include "support/StageArt.h"

namespace scenara::bench {
namespace {

namespace fs = std::filesystem;

#if defined(SCENARA_SAMPLE_DATA)
constexpr const char* kSampleFolder = SCENARA_SAMPLE_DATA;
#else
constexpr const char* kSampleFolder = "";
#endif

constexpr std::size_t kHeaderSize = 128;
constexpr std::size_t kPaletteSize = 768;
constexpr std::byte kPaletteMark{12};
// A stage's pictures are far smaller; more is damage.
constexpr std::size_t kMostPixels = std::size_t{1} << 24U;

using PaletteBytes = std::span<const std::byte>;

ColorTable TextureColors(PaletteBytes palette) {
    ColorTable colors{};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        for (std::size_t part = 0; part < 3; ++part) {
            colors[i] = colors[i] << 8U | std::to_integer<std::uint32_t>(palette[3 * i + part]);
        }
        colors[i] |= i == 0 ? 0U : 0xFF000000U;
    }
    return colors;
}

// How many bytes behind the header are pixels; nothing when they end too early.
std::optional<std::size_t> PackedLength(std::span<const std::byte> packed, std::size_t wanted) {
    std::vector<std::uint32_t> pixels(wanted);
    const UnpackResult result = UnpackPcx(UnpackPath::Plain, packed, {}, pixels, wanted);
    return result.written == wanted ? std::optional(result.consumed) : std::nullopt;
}

// A whole picture out of a file with or without its palette. `palette` is the one to use when the
// file has none; when it has one, `palette` becomes it.
std::optional<SamplePicture> CompletePicture(std::string name, std::span<const std::byte> file,
                                             bool ownPalette, std::vector<std::byte>& palette) {
    if (file.size() < kHeaderSize) {
        return std::nullopt;
    }
    ByteReader header(file, "PCX file");
    header.Skip(2);
    const bool runLengths = header.U8() == 1;
    const bool wholeBytes = header.U8() == 8;
    const int left = header.U16();
    const int top = header.U16();
    const int width = header.U16() - left + 1;
    const int height = header.U16() - top + 1;
    header.Skip(53);
    const bool onePlane = header.U8() == 1;
    const std::size_t bytesPerLine = header.U16();
    if (!runLengths || !wholeBytes || !onePlane || width < 1 || height < 1 ||
        bytesPerLine < static_cast<std::size_t>(width)) {
        return std::nullopt;
    }
    SamplePicture picture{std::move(name),
                          static_cast<std::size_t>(width),
                          static_cast<std::size_t>(height),
                          bytesPerLine,
                          {},
                          {}};
    if (picture.PixelsInMemory() > kMostPixels) {
        return std::nullopt;
    }
    if (ownPalette && file.size() >= kHeaderSize + kPaletteSize) {
        const PaletteBytes own = file.last(kPaletteSize);
        palette.assign(own.begin(), own.end());
    }
    const auto length = PackedLength(file.subspan(kHeaderSize), picture.PixelsInMemory());
    if (!length || palette.size() != kPaletteSize) {
        return std::nullopt;
    }
    const std::span<const std::byte> kept = file.first(kHeaderSize + *length);
    picture.file.assign(kept.begin(), kept.end());
    picture.file.push_back(kPaletteMark);
    picture.file.insert(picture.file.end(), palette.begin(), palette.end());
    picture.colors = TextureColors(palette);
    return picture;
}

void Add(SampleSet& set, std::optional<SamplePicture> picture) {
    if (picture) {
        set.bytes += picture->file.size();
        set.pixels += picture->PixelsInMemory();
        set.pictures.push_back(*std::move(picture));
    }
}

void AddDrawn(SampleSet& set, const samplemaker::IndexedPicture& drawn) {
    std::vector<std::byte> palette;
    const std::vector<std::byte> file = samplemaker::WritePcx(drawn);
    Add(set, CompletePicture("drawn " + std::to_string(set.pictures.size()), file, true, palette));
}

SampleSet DrawAll() {
    SampleSet set{"generated", {}, 0, 0};
    std::uint32_t seed = 1;
    for (int view = 0; view < 4; ++view) {
        const int grow = view;
        AddDrawn(set, DrawBackdrop(640 + 160 * grow, 240 + 80 * grow, ++seed));
        for (int layer = 0; layer < 4; ++layer) {
            AddDrawn(set, DrawLayer(500 + 150 * layer, 160 + 60 * grow, ++seed));
        }
        for (int object = 0; object < 12; ++object) {
            AddDrawn(set, DrawObject(31 + 9 * (object % 16), 40 + 11 * (object % 13), ++seed));
        }
    }
    return set;
}

std::vector<std::byte> ReadAll(const fs::path& path) {
    std::ifstream stream(path, std::ios::binary);
    const std::vector<char> text{std::istreambuf_iterator<char>(stream), {}};
    const auto bytes = std::as_bytes(std::span(text));
    return {bytes.begin(), bytes.end()};
}

// The chain of subfiles; ends at the first thing in it that cannot be.
void AddArchive(SampleSet& set, const fs::path& path) {
    const std::vector<std::byte> archive = ReadAll(path);
    const std::string name = (path.parent_path().filename() / path.filename()).string();
    std::vector<std::byte> palette;
    ByteReader archiveHeader(archive, "archive");
    archiveHeader.Skip(20);
    const std::uint32_t count = archiveHeader.U32();
    std::uint32_t at = archiveHeader.U32();
    for (std::uint32_t i = 0; i < count && at != 0; ++i) {
        ByteReader header(archive, "archive");
        header.Skip(at);
        const std::uint32_t next = header.U32();
        const std::uint32_t length = header.U32();
        header.Skip(10);
        const bool samePalette = header.U8() != 0;
        header.Skip(13);
        if (length != 0) {
            Add(set, CompletePicture(name + " " + std::to_string(i), header.Take(length),
                                     !samePalette || i == 0, palette));
        }
        if (next <= at) {
            break;
        }
        at = next;
    }
}

SampleSet ReadSampleData() {
    SampleSet set{"sampleData", {}, 0, 0};
    for (const fs::path& path : SampleArchives()) {
        try {
            AddArchive(set, path);
        } catch (const RunTimeError&) {
            // What came before the damage counts.
        }
    }
    return set;
}

bool IsArchive(const fs::path& path) {
    constexpr std::array<char, 16> kSignature = {'E', 'l', 'e', 'c', 'b', 'y', 't', 'e',
                                                 'S', 'p', 'r', 0,   0,   1,   0,   1};
    std::array<char, 16> start{};
    std::ifstream(path, std::ios::binary).read(start.data(), start.size());
    return start == kSignature;
}

}  // namespace

std::span<const std::byte> SamplePicture::Packed() const {
    return std::span(file).subspan(kHeaderSize);
}

const SampleSet& GeneratedPictures() {
    static const SampleSet set = DrawAll();
    return set;
}

const SampleSet& SampleDataPictures() {
    static const SampleSet set = ReadSampleData();
    return set;
}

std::vector<fs::path> SampleArchives() {
    std::vector<fs::path> archives;
    std::error_code error;
    constexpr auto kOptions = fs::directory_options::skip_permission_denied;
    for (fs::recursive_directory_iterator entry(kSampleFolder, kOptions, error), end;
         !error && entry != end; entry.increment(error)) {
        std::error_code unknown;
        if (entry->is_regular_file(unknown) && IsArchive(entry->path())) {
            archives.push_back(entry->path());
        }
    }
    std::ranges::sort(archives);
    return archives;
}

}  // namespace scenara::bench
