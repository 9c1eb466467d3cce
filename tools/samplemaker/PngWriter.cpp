// SPDX-License-Identifier: MIT
#include "samplemaker/PngWriter.h"

#include <algorithm>
#include <initializer_list>
#include <span>
#include <string_view>
#include <utility>

#include <zlib.h>

#include "samplemaker/ByteWriter.h"
#include "samplemaker/PngFilters.h"
#include "samplemaker/Require.h"

namespace scenara::samplemaker {
namespace {

using std::string_view_literals::operator""sv;

// The kinds of the header.
constexpr std::uint8_t kGrey = 0;
constexpr std::uint8_t kColours = 2;
constexpr std::uint8_t kIndices = 3;
constexpr std::uint8_t kGreyAndAlpha = 4;
constexpr std::uint8_t kColoursAndAlpha = 6;

// A picture as its samples, before they are packed.
struct PngPicture {
    std::size_t width = 0;
    std::size_t height = 0;
    std::uint8_t kind = 0;
    unsigned bits = 8;
    std::size_t perPixel = 1;
    std::vector<std::uint8_t> values;
};

// The pixels of a pass: every `stepX`th column from `firstX` on, and the same of rows.
struct Pass {
    std::size_t firstX, firstY, stepX, stepY;
};

constexpr Pass kWhole[] = {{0, 0, 1, 1}};
constexpr Pass kInterlaced[] = {{0, 0, 8, 8}, {4, 0, 8, 8}, {0, 4, 4, 8}, {2, 0, 4, 4},
                                {0, 2, 2, 4}, {1, 0, 2, 2}, {0, 1, 1, 2}};

class RowPacker {
public:
    explicit RowPacker(unsigned bits) : bits_(bits) {}

    void Add(std::uint8_t value) {
        if (bits_ >= 8) {
            bytes_.insert(bytes_.end(), bits_ / 8, value);
            return;
        }
        if (used_ % 8 == 0) {
            bytes_.push_back(0);
        }
        used_ += bits_;
        const unsigned shift = (8 - used_ % 8) % 8;
        bytes_.back() = static_cast<std::uint8_t>(bytes_.back() | value << shift);
    }

    [[nodiscard]] std::vector<std::uint8_t> Take() && { return std::move(bytes_); }

private:
    unsigned bits_;
    unsigned used_ = 0;
    std::vector<std::uint8_t> bytes_;
};

std::vector<std::uint8_t> PackedRow(const PngPicture& picture, const Pass& pass, std::size_t y) {
    RowPacker row(picture.bits);
    for (std::size_t x = pass.firstX; x < picture.width; x += pass.stepX) {
        for (std::size_t i = 0; i < picture.perPixel; ++i) {
            row.Add(picture.values[(y * picture.width + x) * picture.perPixel + i]);
        }
    }
    return std::move(row).Take();
}

unsigned FilterOf(PngFilter wanted, const PngPicture& picture, std::size_t y,
                  std::span<const std::uint8_t> row, std::span<const std::uint8_t> above,
                  std::size_t pixelBytes) {
    switch (wanted) {
        case PngFilter::None: return 0;
        case PngFilter::Sub: return 1;
        case PngFilter::Up: return 2;
        case PngFilter::Average: return 3;
        case PngFilter::Paeth: return 4;
        case PngFilter::InTurn: return static_cast<unsigned>(y % 5);
        case PngFilter::Best: break;
    }
    // Neighbouring indices have nothing to do with each other.
    return picture.kind == kIndices ? 0 : SmallestFilter(row, above, pixelBytes);
}

std::vector<std::byte> FilteredRows(const PngPicture& picture, const PngOptions& options) {
    const auto passes =
        options.interlaced ? std::span<const Pass>(kInterlaced) : std::span<const Pass>(kWhole);
    const std::size_t pixelBytes = std::max<std::size_t>(picture.perPixel * picture.bits / 8, 1);
    ByteWriter out;
    for (const Pass& pass : passes) {
        if (pass.firstX >= picture.width) {
            continue;  // not even the filters of its rows are there
        }
        std::vector<std::uint8_t> above;
        for (std::size_t y = pass.firstY; y < picture.height; y += pass.stepY) {
            std::vector<std::uint8_t> row = PackedRow(picture, pass, y);
            above.resize(row.size(), 0);
            const unsigned filter = FilterOf(options.filter, picture, y, row, above, pixelBytes);
            out.U8(static_cast<std::uint8_t>(filter));
            const auto filtered = FilteredRow(filter, row, above, pixelBytes);
            out.Append(std::as_bytes(std::span(filtered)));
            above = std::move(row);
        }
    }
    return std::move(out).Take();
}

// Not as small as it could be: that would take three times as long for a twenty-fifth less.
std::vector<std::byte> Deflated(const std::vector<std::byte>& bytes) {
    uLongf size = compressBound(static_cast<uLong>(bytes.size()));
    std::vector<std::byte> deflated(size);
    Require(compress2(reinterpret_cast<Bytef*>(deflated.data()), &size,
                      reinterpret_cast<const Bytef*>(bytes.data()),
                      static_cast<uLong>(bytes.size()), Z_DEFAULT_COMPRESSION) == Z_OK,
            "PNG: the rows cannot be deflated");
    deflated.resize(size);
    return deflated;
}

void WritePngChunk(ByteWriter& out, std::string_view name, std::span<const std::byte> data) {
    ByteWriter checked;
    checked.Text(name);
    checked.Append(data);
    const std::vector<std::byte> bytes = std::move(checked).Take();
    out.BigU32(static_cast<std::uint32_t>(data.size()));
    out.Append(bytes);
    out.BigU32(static_cast<std::uint32_t>(
        crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size()))));
}

void WritePngHeader(ByteWriter& out, const PngPicture& picture, const PngOptions& options) {
    ByteWriter header;
    header.BigU32(options.statedWidth.value_or(static_cast<std::uint32_t>(picture.width)));
    header.BigU32(options.statedHeight.value_or(static_cast<std::uint32_t>(picture.height)));
    header.U8(static_cast<std::uint8_t>(picture.bits));
    header.U8(picture.kind);
    header.U8(0);
    header.U8(0);
    header.U8(options.interlaced ? 1 : 0);
    WritePngChunk(out, "IHDR", std::move(header).Take());
}

void WritePngPalette(ByteWriter& out, const Palette& palette, unsigned bits, PngPalette wanted) {
    if (wanted == PngPalette::None) {
        return;
    }
    const std::size_t colours = std::size_t{1} << bits;
    ByteWriter data;
    for (std::size_t i = 0; i < colours; ++i) {
        const Rgb colour = wanted == PngPalette::Own ? palette.at(i) : Rgb{};
        data.U8(colour.red);
        data.U8(colour.green);
        data.U8(colour.blue);
    }
    WritePngChunk(out, "PLTE", std::move(data).Take());
    if (wanted == PngPalette::BlackAndClear) {
        WritePngChunk(out, "tRNS", std::vector<std::byte>(colours));
    }
}

void WriteTransparent(ByteWriter& out, const PngPicture& picture, Rgb colour) {
    Require(picture.kind == kColours, "PNG: only colours without alpha have a transparent one");
    ByteWriter data;
    for (const std::uint8_t value : {colour.red, colour.green, colour.blue}) {
        data.BigU16(static_cast<std::uint16_t>(picture.bits == 16 ? value * 257 : value));
    }
    WritePngChunk(out, "tRNS", std::move(data).Take());
}

void WritePngData(ByteWriter& out, std::span<const std::byte> data, std::size_t chunkSize) {
    const std::size_t most = chunkSize == 0 ? data.size() : chunkSize;
    for (std::size_t at = 0; at < data.size(); at += most) {
        WritePngChunk(out, "IDAT", data.subspan(at, std::min(most, data.size() - at)));
    }
}

std::vector<std::byte> WriteSamples(const PngPicture& picture, const Palette* palette,
                                    const PngOptions& options) {
    ByteWriter out;
    out.Text("\x89PNG\r\n\x1A\n"sv);
    WritePngHeader(out, picture, options);
    if (palette != nullptr) {
        WritePngPalette(out, *palette, picture.bits, options.palette);
    }
    if (options.transparent) {
        WriteTransparent(out, picture, *options.transparent);
    }
    WritePngData(out, Deflated(FilteredRows(picture, options)), options.chunkSize);
    WritePngChunk(out, "IEND", {});
    return std::move(out).Take();
}

// A picture of `perPixel` samples of 8 bits or 16, without them.
template <typename Picture>
PngPicture SamplesOf(const Picture& picture, std::uint8_t kind, std::size_t perPixel, int bits,
                     std::initializer_list<int> allowed) {
    Require(picture.width >= 1 && picture.height >= 1, "PNG: a picture has at least one pixel");
    const auto width = static_cast<std::size_t>(picture.width);
    const auto height = static_cast<std::size_t>(picture.height);
    Require(picture.pixels.size() == width * height, "PNG: the pixels are not width x height");
    Require(std::ranges::count(allowed, bits) == 1, "PNG: this kind has no samples of these bits");
    PngPicture samples{width, height, kind, static_cast<unsigned>(bits), perPixel, {}};
    samples.values.reserve(width * height * perPixel);
    return samples;
}

PngPicture EmptySamplesOf(const IndexedPicture& picture, const PngOptions& options) {
    switch (options.samples) {
        case PngSamples::Indices:
            return SamplesOf(picture, kIndices, 1, options.bits, {1, 2, 4, 8});
        case PngSamples::Grey: return SamplesOf(picture, kGrey, 1, options.bits, {1, 2, 4, 8, 16});
        case PngSamples::GreyAndAlpha:
            return SamplesOf(picture, kGreyAndAlpha, 2, options.bits, {8, 16});
    }
    throw std::invalid_argument("PNG: unknown samples");
}

}  // namespace

std::vector<std::byte> WritePng(const IndexedPicture& picture, const PngOptions& options) {
    PngPicture samples = EmptySamplesOf(picture, options);
    for (const std::uint8_t pixel : picture.pixels) {
        Require(pixel >> std::min(samples.bits, 8U) == 0, "PNG: a pixel needs more bits");
        samples.values.push_back(pixel);
        if (samples.kind == kGreyAndAlpha) {
            // Of whoever reads the indices, nobody asks for it.
            samples.values.push_back(static_cast<std::uint8_t>(samples.values.size() * 37));
        }
    }
    return WriteSamples(samples, samples.kind == kIndices ? &picture.palette : nullptr, options);
}

std::vector<std::byte> WritePng(const TrueColourPicture& picture, const PngOptions& options) {
    PngPicture samples = SamplesOf(picture, kColours, 3, options.bits, {8, 16});
    for (const Rgb& pixel : picture.pixels) {
        samples.values.insert(samples.values.end(), {pixel.red, pixel.green, pixel.blue});
    }
    return WriteSamples(samples, nullptr, options);
}

std::vector<std::byte> WritePng(const AlphaPicture& picture, const PngOptions& options) {
    PngPicture samples = SamplesOf(picture, kColoursAndAlpha, 4, options.bits, {8, 16});
    for (const Rgba& pixel : picture.pixels) {
        samples.values.insert(samples.values.end(),
                              {pixel.red, pixel.green, pixel.blue, pixel.alpha});
    }
    return WriteSamples(samples, nullptr, options);
}

}  // namespace scenara::samplemaker
