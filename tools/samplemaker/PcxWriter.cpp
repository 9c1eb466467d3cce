// SPDX-License-Identifier: MIT
#include "samplemaker/PcxWriter.h"

#include <algorithm>
#include <span>
#include <stdexcept>

#include "samplemaker/ByteWriter.h"

namespace scenara::samplemaker {
namespace {

struct Layout {
    int bits = 8;
    int planes = 1;
};

Layout LayoutOf(PcxDepth depth) {
    switch (depth) {
        case PcxDepth::Bits8: return {8, 1};
        case PcxDepth::Bits1: return {1, 1};
        case PcxDepth::Bits2: return {2, 1};
        case PcxDepth::Bits4: return {4, 1};
        case PcxDepth::Bits1Planes2: return {1, 2};
        case PcxDepth::Bits1Planes3: return {1, 3};
        case PcxDepth::Bits1Planes4: return {1, 4};
    }
    throw std::invalid_argument("PCX: unknown depth");
}

void CheckSize(int width, int height, std::size_t pixels) {
    if (width < 1 || height < 1) {
        throw std::invalid_argument("PCX: a picture has at least one pixel");
    }
    if (width > 0x10000 || height > 0x10000) {
        throw std::invalid_argument("PCX: a side is longer than 65536 pixels");
    }
    if (pixels != static_cast<std::size_t>(width) * static_cast<std::size_t>(height)) {
        throw std::invalid_argument("PCX: the pixels are not width x height");
    }
}

std::uint16_t HeaderNumber(int value) {
    if (value < 0 || value > 0xFFFF) {
        throw std::invalid_argument("PCX: a header number does not fit into 16 bits");
    }
    return static_cast<std::uint16_t>(value);
}

int BytesPerLine(int width, int bits, const PcxOptions& options) {
    const int needed = (width * bits + 7) / 8;
    if (options.bytesPerLine == 0) {
        return needed + needed % 2;
    }
    if (options.bytesPerLine < needed) {
        throw std::invalid_argument("PCX: a line does not fit into its bytes");
    }
    return options.bytesPerLine;
}

void WriteHeader(ByteWriter& out, int width, int height, Layout layout, int bytesPerLine,
                 const PcxOptions& options, std::span<const Rgb> headerPalette) {
    out.U8(10);
    out.U8(options.version);
    out.U8(options.runLengths ? 1 : 0);
    out.U8(static_cast<std::uint8_t>(layout.bits));
    out.U16(HeaderNumber(options.xMin));
    out.U16(HeaderNumber(options.yMin));
    out.U16(HeaderNumber(options.xMin + width - 1));
    out.U16(HeaderNumber(options.yMin + height - 1));
    out.U16(72);
    out.U16(72);
    for (const Rgb& colour : headerPalette) {
        out.U8(colour.red);
        out.U8(colour.green);
        out.U8(colour.blue);
    }
    out.Fill(64 - out.Size(), 0);
    out.U8(0);
    out.U8(static_cast<std::uint8_t>(layout.planes));
    out.U16(HeaderNumber(bytesPerLine));
    out.U16(1);
    out.Fill(128 - out.Size(), 0);
}

void WriteRuns(ByteWriter& out, std::span<const std::uint8_t> bytes) {
    constexpr std::size_t kLongestRun = 63;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::uint8_t value = bytes[at];
        std::size_t run = 1;
        while (run < kLongestRun && at + run < bytes.size() && bytes[at + run] == value) {
            ++run;
        }
        if (run > 1 || value >= 192) {
            out.U8(static_cast<std::uint8_t>(192 + run));
        }
        out.U8(value);
        at += run;
    }
}

// `lines`: all lines of the picture, each with its planes, each plane `bytesPerLine` long.
void WriteLines(ByteWriter& out, std::span<const std::uint8_t> lines, std::size_t bytesPerLine,
                std::size_t planes, const PcxOptions& options) {
    if (!options.runLengths) {
        out.Append(std::as_bytes(lines));
        return;
    }
    std::size_t stretch = lines.size();
    if (options.runBreaks == RunBreaks::AtLineEnds) {
        stretch = bytesPerLine * planes;
    } else if (options.runBreaks == RunBreaks::AtPlaneEnds) {
        stretch = bytesPerLine;
    }
    for (std::size_t at = 0; at < lines.size(); at += stretch) {
        WriteRuns(out, lines.subspan(at, stretch));
    }
}

// Lays the `bits` low bits of `value` where pixel `x` of a plane belongs, leftmost pixel highest.
void PutBits(std::span<std::uint8_t> plane, std::size_t x, unsigned bits, unsigned value) {
    const unsigned perByte = 8 / bits;
    const auto place = static_cast<unsigned>(x % perByte);
    const unsigned shift = 8 - bits * (place + 1);
    const unsigned mask = ((1U << bits) - 1U) << shift;
    std::uint8_t& byte = plane[x / perByte];
    byte = static_cast<std::uint8_t>((byte & ~mask) | ((value << shift) & mask));
}

std::vector<std::uint8_t> IndexedLines(const IndexedPicture& picture, Layout layout,
                                       std::size_t bytesPerLine, std::uint8_t padding) {
    const auto width = static_cast<std::size_t>(picture.width);
    const auto height = static_cast<std::size_t>(picture.height);
    const auto planes = static_cast<std::size_t>(layout.planes);
    const auto bits = static_cast<unsigned>(layout.bits);
    std::vector<std::uint8_t> lines(height * planes * bytesPerLine, padding);
    for (std::size_t y = 0; y < height; ++y) {
        for (std::size_t plane = 0; plane < planes; ++plane) {
            const std::span<std::uint8_t> bytes =
                std::span(lines).subspan((y * planes + plane) * bytesPerLine, bytesPerLine);
            for (std::size_t x = 0; x < width; ++x) {
                const unsigned pixel = picture.pixels[y * width + x];
                PutBits(bytes, x, bits, pixel >> (plane * bits));
            }
        }
    }
    return lines;
}

std::vector<std::byte> WriteTrueColour(const TrueColourPicture& picture, Layout layout,
                                       std::uint8_t fourth, const PcxOptions& options) {
    CheckSize(picture.width, picture.height, picture.pixels.size());
    const int bytesPerLine = BytesPerLine(picture.width, 8, options);
    ByteWriter out;
    WriteHeader(out, picture.width, picture.height, layout, bytesPerLine, options, {});

    const auto width = static_cast<std::size_t>(picture.width);
    const auto stride = static_cast<std::size_t>(bytesPerLine);
    const auto planes = static_cast<std::size_t>(layout.planes);
    std::vector<std::uint8_t> lines(static_cast<std::size_t>(picture.height) * planes * stride,
                                    options.padding);
    for (std::size_t at = 0; at < picture.pixels.size(); ++at) {
        const Rgb& pixel = picture.pixels[at];
        const std::uint8_t values[] = {pixel.red, pixel.green, pixel.blue, fourth};
        for (std::size_t plane = 0; plane < planes; ++plane) {
            lines[(at / width * planes + plane) * stride + at % width] = values[plane];
        }
    }
    WriteLines(out, lines, stride, planes, options);
    return std::move(out).Take();
}

}  // namespace

std::vector<std::byte> WritePcx(const IndexedPicture& picture, const PcxOptions& options,
                                PcxDepth depth) {
    CheckSize(picture.width, picture.height, picture.pixels.size());
    const Layout layout = LayoutOf(depth);
    const int colours = 1 << (layout.bits * layout.planes);
    if (std::any_of(picture.pixels.begin(), picture.pixels.end(),
                    [colours](std::uint8_t pixel) { return pixel >= colours; })) {
        throw std::invalid_argument("PCX: a pixel needs more bits than the picture has");
    }
    const int bytesPerLine = BytesPerLine(picture.width, layout.bits, options);
    const bool wholeByte = layout.bits == 8;

    ByteWriter out;
    WriteHeader(out, picture.width, picture.height, layout, bytesPerLine, options,
                std::span(picture.palette).first(wholeByte ? 0 : 16));
    const auto stride = static_cast<std::size_t>(bytesPerLine);
    WriteLines(out, IndexedLines(picture, layout, stride, options.padding), stride,
               static_cast<std::size_t>(layout.planes), options);
    if (wholeByte && options.trailingPalette != TrailingPalette::None) {
        out.U8(12);
    }
    if (wholeByte && options.trailingPalette == TrailingPalette::Whole) {
        for (const Rgb& colour : picture.palette) {
            out.U8(colour.red);
            out.U8(colour.green);
            out.U8(colour.blue);
        }
    }
    return std::move(out).Take();
}

std::vector<std::byte> WritePcx(const TrueColourPicture& picture, const PcxOptions& options) {
    return WriteTrueColour(picture, {8, 3}, 0, options);
}

std::vector<std::byte> WritePcx(const TrueColourPicture& picture, std::uint8_t fourth,
                                const PcxOptions& options) {
    return WriteTrueColour(picture, {8, 4}, fourth, options);
}

}  // namespace scenara::samplemaker
