// SPDX-License-Identifier: MIT
//
// Run-length bytes to 32-bit pixels, beside the libraries that do the same and beside a memcpy of
// the finished pictures, which no decoder can be expected to beat.
//
// One iteration decodes all pictures of a set, one behind the other into memory that is touched
// before, as a stage's textures are. Items are pixels, bytes are those of the files. Before
// anything is timed every program's pictures are compared with those of the plain path; a
// difference ends the benchmark with an error.
#include <algorithm>
#include <cstring>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/headless/HeadlessMessages.h"
#include "platform/soft/SoftDevice.h"
#include "sprites/PcxUnpack.h"
#include "sprites/modFilePCX.h"
#include "support/PcxPeers.h"
#include "support/SamplePictures.h"

namespace scenara::bench {
namespace {

// The memory of all textures of a set, and where in it each picture lies.
class Textures {
public:
    explicit Textures(const SampleSet& set) : words_(set.pixels + kUnpackSlack) {
        std::size_t at = 0;
        for (const SamplePicture& picture : set.pictures) {
            places_.push_back(at);
            at += picture.PixelsInMemory();
        }
    }

    // From the picture's first word to the end of the memory.
    std::span<std::uint32_t> From(std::size_t index) {
        return std::span(words_).subspan(places_[index]);
    }

private:
    std::vector<std::uint32_t> words_;
    std::vector<std::size_t> places_;
};

void UnpackInto(Textures& textures, std::size_t index, const SamplePicture& picture,
                UnpackPath path) {
    const std::size_t wanted = picture.PixelsInMemory();
    const std::span<std::uint32_t> pixels = textures.From(index).first(wanted + kUnpackSlack);
    const UnpackResult result = UnpackPcx(path, picture.Packed(), picture.colors, pixels, wanted);
    benchmark::DoNotOptimize(result.written);
}

// Everything that the rows of one set share; made once for all of them.
struct Bench {
    explicit Bench(const SampleSet& from)
        : set(from), finished(from), textures(from), libavcodec(from.pictures) {
        for (std::size_t i = 0; i < set.pictures.size(); ++i) {
            UnpackInto(finished, i, set.pictures[i], UnpackPath::Plain);
        }
    }

    const SampleSet& set;
    Textures finished;
    Textures textures;
    SdlImagePeer sdlImage;
    LibavcodecPeer libavcodec;
    HeadlessMessages messages;
    SoftDevice device;
    std::vector<PcxPicture> loaded = std::vector<PcxPicture>(set.pictures.size());
};

struct MemcpyRow {
    static PictureView Make(Bench& bench, std::size_t index) {
        const SamplePicture& picture = bench.set.pictures[index];
        const std::span<std::uint32_t> pixels = bench.textures.From(index);
        std::memcpy(pixels.data(), bench.finished.From(index).data(),
                    picture.PixelsInMemory() * sizeof(std::uint32_t));
        return {pixels.data(), picture.width, picture.height, picture.bytesPerLine};
    }
};

struct SdlImageRow {
    static PictureView Make(Bench& bench, std::size_t index) {
        return bench.sdlImage.Decode(bench.set.pictures[index]);
    }
};

struct LibavcodecRow {
    static PictureView Make(Bench& bench, std::size_t index) {
        return bench.libavcodec.Decode(index, bench.textures.From(index));
    }
};

template <UnpackPath kPath>
struct UnpackRow {
    static PictureView Make(Bench& bench, std::size_t index) {
        if (kPath > BestUnpackPath()) {
            throw std::runtime_error("this processor does not have the path");
        }
        const SamplePicture& picture = bench.set.pictures[index];
        UnpackInto(bench.textures, index, picture, kPath);
        return {bench.textures.From(index).data(), picture.width, picture.height,
                picture.bytesPerLine};
    }
};

// The whole decoder: header, palette, a texture of its own for each picture. The textures of one
// pass stay until the next, as a stage's do.
template <UnpackPath kPath>
struct TextureRow {
    static PictureView Make(Bench& bench, std::size_t index) {
        if (index == 0) {
            std::fill(bench.loaded.begin(), bench.loaded.end(), PcxPicture{});
        }
        const SamplePicture& picture = bench.set.pictures[index];
        const std::span<const std::byte> file(picture.file);
        PcxDecoder decoder(bench.device, bench.messages, kPath);
        decoder.SetPalette(file.last<kPcxPaletteSize>());
        const PcxHeader header = ReadPcxHeader(file.first<kPcxHeaderSize>());
        if (!decoder.LoadPCX(header, picture.Packed(), bench.loaded[index])) {
            throw std::runtime_error(bench.messages.Recorded().back().text);
        }
        const LockedPixels pixels = bench.loaded[index].texture->LockRect();
        return {pixels.words.data(), picture.width, picture.height,
                static_cast<std::size_t>(pixels.pitch)};
    }
};

bool SamePicture(const PictureView& a, const PictureView& b) {
    if (a.width != b.width || a.height != b.height) {
        return false;
    }
    for (std::size_t y = 0; y < a.height; ++y) {
        if (!std::equal(a.pixels + y * a.pitch, a.pixels + y * a.pitch + a.width,
                        b.pixels + y * b.pitch)) {
            return false;
        }
    }
    return true;
}

template <class Row>
void CheckPictures(Bench& bench) {
    for (std::size_t i = 0; i < bench.set.pictures.size(); ++i) {
        const SamplePicture& picture = bench.set.pictures[i];
        const PictureView expected = {bench.finished.From(i).data(), picture.width, picture.height,
                                      picture.bytesPerLine};
        if (!SamePicture(Row::Make(bench, i), expected)) {
            throw std::runtime_error("another picture: " + picture.name);
        }
    }
}

template <const SampleSet& (*kPictures)()>
Bench& BenchOf() {
    static Bench bench(kPictures());
    return bench;
}

template <class Row, const SampleSet& (*kPictures)()>
void Decode(benchmark::State& state) {
    try {
        auto& bench = BenchOf<kPictures>();
        [[maybe_unused]] static const bool checked = (CheckPictures<Row>(bench), true);
        const std::size_t count = bench.set.pictures.size();
        if (count == 0) {
            throw std::runtime_error("no pictures");
        }
        for ([[maybe_unused]] const auto iteration : state) {
            for (std::size_t i = 0; i < count; ++i) {
                benchmark::DoNotOptimize(Row::Make(bench, i).pixels);
            }
            benchmark::ClobberMemory();
        }
        const auto passes = static_cast<std::int64_t>(state.iterations());
        state.SetItemsProcessed(passes * static_cast<std::int64_t>(bench.set.pixels));
        state.SetBytesProcessed(passes * static_cast<std::int64_t>(bench.set.bytes));
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
#define DECODE_ROW(row, name)                           \
    BENCHMARK_TEMPLATE(Decode, row, GeneratedPictures)  \
        ->Name("Decode/" name "/generated")             \
        ->Unit(benchmark::kMillisecond);                \
    BENCHMARK_TEMPLATE(Decode, row, SampleDataPictures) \
        ->Name("Decode/" name "/sampleData")            \
        ->Unit(benchmark::kMillisecond)

DECODE_ROW(MemcpyRow, "Memcpy");
DECODE_ROW(SdlImageRow, "Sdl2Image");
DECODE_ROW(LibavcodecRow, "Libavcodec");
DECODE_ROW(TextureRow<UnpackPath::Sse2>, "TexturesSse2");
DECODE_ROW(TextureRow<UnpackPath::Avx2>, "TexturesAvx2");
DECODE_ROW(UnpackRow<UnpackPath::Plain>, "Plain");
DECODE_ROW(UnpackRow<UnpackPath::Sse2>, "Sse2");
DECODE_ROW(UnpackRow<UnpackPath::Avx2>, "Avx2");
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
