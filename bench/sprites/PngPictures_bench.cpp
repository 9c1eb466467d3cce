// SPDX-License-Identifier: MIT
//
// PNG pictures to 32-bit pixels, beside libpng alone, which reads the same files into rows of RGBA.
//
// Both sides unpack with the same library, so what can be lost is what is done around it. One
// iteration reads all pictures of a kind, each into memory that is touched before. Items are
// pixels, bytes are those of the files. Before anything is timed the pictures of the two are
// compared.
#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <stdexcept>
#include <vector>

#include <benchmark/benchmark.h>
#include <png.h>

#include "platform/png/LibPngPictures.h"
#include "support/StageArt.h"

namespace scenara::bench {
namespace {

using Words = std::vector<std::uint32_t>;

enum class PngKind : std::uint8_t { Indexed, Rgb, Rgba };

struct PngFile {
    std::size_t width = 0;
    std::size_t height = 0;
    std::vector<std::byte> bytes;
    std::array<std::uint32_t, 256> colors{};  // ARGB
};

struct PngSet {
    std::vector<PngFile> files;
    std::size_t bytes = 0;
    std::size_t pixels = 0;
};

[[noreturn]] void Fail(const char* what) {
    throw std::runtime_error(what);
}

// The pixels as the format of the kind has them; a little light on them, so that true colours are
// more than a palette has.
std::vector<std::uint8_t> PixelBytes(const samplemaker::IndexedPicture& picture, PngKind kind) {
    std::vector<std::uint8_t> bytes;
    for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
        const std::uint8_t index = picture.pixels[i];
        if (kind == PngKind::Indexed) {
            bytes.push_back(index);
            continue;
        }
        const samplemaker::Rgb& color = picture.palette.at(index);
        const auto light = static_cast<unsigned>(i % static_cast<std::size_t>(picture.width)) / 16U;
        for (const std::uint8_t part : {color.red, color.green, color.blue}) {
            bytes.push_back(static_cast<std::uint8_t>(std::min(255U, part + light)));
        }
        if (kind == PngKind::Rgba) {
            bytes.push_back(index == 0 ? 0 : 255);
        }
    }
    return bytes;
}

PngFile FileOf(const samplemaker::IndexedPicture& picture, PngKind kind) {
    PngFile file{
        static_cast<std::size_t>(picture.width), static_cast<std::size_t>(picture.height), {}, {}};
    std::vector<std::uint8_t> palette;
    for (std::size_t i = 0; i < picture.palette.size(); ++i) {
        const samplemaker::Rgb& color = picture.palette.at(i);
        palette.insert(palette.end(), {color.red, color.green, color.blue});
        file.colors.at(i) = 0xFF000000U | std::uint32_t{color.red} << 16U |
                            std::uint32_t{color.green} << 8U | color.blue;
    }
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(picture.width);
    image.height = static_cast<png_uint_32>(picture.height);
    image.format = kind == PngKind::Indexed ? PNG_FORMAT_RGB_COLORMAP
                   : kind == PngKind::Rgb   ? PNG_FORMAT_RGB
                                            : PNG_FORMAT_RGBA;
    image.colormap_entries = kind == PngKind::Indexed ? 256 : 0;
    const std::vector<std::uint8_t> pixels = PixelBytes(picture, kind);
    png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
    file.bytes.resize(size);
    if (png_image_write_to_memory(&image, file.bytes.data(), &size, 0, pixels.data(), 0,
                                  palette.data()) == 0) {
        Fail(static_cast<const char*>(image.message));
    }
    file.bytes.resize(size);
    return file;
}

PngSet DrawSet(PngKind kind) {
    PngSet set;
    const auto add = [&](const samplemaker::IndexedPicture& picture) {
        set.files.push_back(FileOf(picture, kind));
        set.bytes += set.files.back().bytes.size();
        set.pixels += picture.pixels.size();
    };
    add(DrawBackdrop(1280, 720, 1));
    for (int i = 0; i < 3; ++i) {
        add(DrawLayer(800 + 150 * i, 240 + 60 * i, static_cast<std::uint32_t>(2 + i)));
    }
    for (int i = 0; i < 12; ++i) {
        add(DrawObject(31 + 9 * i, 40 + 11 * i, static_cast<std::uint32_t>(5 + i)));
    }
    return set;
}

template <PngKind kKind>
const PngSet& SetOf() {
    static const PngSet set = DrawSet(kKind);
    return set;
}

// This program: ARGB words.
struct OursRow {
    static void Read(const PngFile& file, PngKind kind, Words& words) {
        const bool isIndexed = kind == PngKind::Indexed;
        const auto picture =
            pictures.Open(file.bytes, isIndexed ? PngWanted::Indices : PngWanted::Colours);
        const auto pitch = static_cast<std::int32_t>(file.width);
        const std::int32_t lines = isIndexed ? picture->ReadIndexed(file.colors, words, pitch)
                                             : picture->ReadColours(words, pitch);
        if (lines != picture->Height()) {
            Fail("ours: a damaged picture");
        }
    }
    static std::uint32_t Argb(std::uint32_t word) { return word; }

    static inline const LibPngPictures pictures;
};

// libpng as its manual has it: the bytes R, G, B, A, row by row.
struct LibpngRow {
    static void Read(const PngFile& file, PngKind, Words& words) {
        std::span<const std::byte> left = file.bytes;
        png_structp png = png_create_read_struct(PNG_LIBPNG_VER_STRING, nullptr, &OnError, nullptr);
        png_infop info = png_create_info_struct(png);
        png_set_read_fn(png, &left, &ReadBytes);
        png_read_info(png, info);
        png_set_palette_to_rgb(png);
        png_set_add_alpha(png, 0xFF, PNG_FILLER_AFTER);
        png_read_update_info(png, info);
        std::vector<png_bytep> rows;
        for (std::size_t y = 0; y < file.height; ++y) {
            rows.push_back(reinterpret_cast<png_bytep>(words.data() + y * file.width));
        }
        png_read_image(png, rows.data());
        png_destroy_read_struct(&png, &info, nullptr);
    }
    static std::uint32_t Argb(std::uint32_t word) {
        return (word & 0xFF00FF00U) | (word & 0xFFU) << 16U | (word >> 16U & 0xFFU);
    }

private:
    static void ReadBytes(png_structp png, png_bytep out, std::size_t count) {
        auto& left = *static_cast<std::span<const std::byte>*>(png_get_io_ptr(png));
        std::memcpy(out, left.data(), count);
        left = left.subspan(count);
    }
    [[noreturn]] static void OnError(png_structp, png_const_charp) { std::abort(); }
};

template <class Row, PngKind kKind>
void CheckPictures() {
    const PngSet& set = SetOf<kKind>();
    for (const PngFile& file : set.files) {
        Words ours(file.width * file.height);
        Words theirs(ours.size());
        OursRow::Read(file, kKind, ours);
        Row::Read(file, kKind, theirs);
        std::ranges::transform(theirs, theirs.begin(), &Row::Argb);
        if (ours != theirs) {
            Fail("another picture");
        }
    }
}

template <class Row, PngKind kKind>
void ReadPngs(benchmark::State& state) {
    try {
        const PngSet& set = SetOf<kKind>();
        CheckPictures<Row, kKind>();
        std::vector<Words> words;
        for (const PngFile& file : set.files) {
            words.emplace_back(file.width * file.height);
        }
        for ([[maybe_unused]] const auto iteration : state) {
            for (std::size_t i = 0; i < set.files.size(); ++i) {
                Row::Read(set.files[i], kKind, words[i]);
                benchmark::DoNotOptimize(words[i].data());
            }
            benchmark::ClobberMemory();
        }
        const auto passes = static_cast<std::int64_t>(state.iterations());
        state.SetItemsProcessed(passes * static_cast<std::int64_t>(set.pixels));
        state.SetBytesProcessed(passes * static_cast<std::int64_t>(set.bytes));
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
#define PNG_ROWS(kind, name)                      \
    BENCHMARK_TEMPLATE(ReadPngs, LibpngRow, kind) \
        ->Name("Png/Libpng" name)                 \
        ->Unit(benchmark::kMillisecond);          \
    BENCHMARK_TEMPLATE(ReadPngs, OursRow, kind)   \
        ->Name("Png/Ours" name)                   \
        ->Unit(benchmark::kMillisecond)

PNG_ROWS(PngKind::Indexed, "/bits8");
PNG_ROWS(PngKind::Rgb, "/bits24");
PNG_ROWS(PngKind::Rgba, "/bits32");
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
