// SPDX-License-Identifier: MIT
//
// PNGs that end anywhere: the lines whose packed bytes are there are read, and no other word is
// touched.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <random>
#include <span>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <zlib.h>

#include "SmallPngs.h"

namespace scenara::test {
namespace {

// A file with its pixels in chunks of `most` bytes.
PngBytes FileInPieces(const RandomPng& png, std::size_t most) {
    Chunks chunks = {PngHeader(png.shape)};
    Append(chunks, png.Colours());
    Append(chunks, PngDataChunks(Deflated(PngLines(png.shape, png.samples)), most));
    chunks.push_back({"IEND", {}});
    return PngFileOf(chunks);
}

// The packed bytes of all IDAT chunks as far as they are there; nothing before the first one.
std::optional<PngBytes> PackedIn(std::span<const std::byte> file) {
    std::optional<PngBytes> packed;
    for (std::size_t at = 8; at + 8 <= file.size();) {
        std::size_t length = 0;
        for (std::size_t i = 0; i < 4; ++i) {
            length = length << 8U | std::to_integer<std::size_t>(file[at + i]);
        }
        const auto data = file.subspan(at + 8);
        if (std::ranges::equal(file.subspan(at + 4, 4), PngBytesOf("IDAT"))) {
            const auto part = data.first(std::min(length, data.size()));
            packed = packed.value_or(PngBytes{});
            packed->insert(packed->end(), part.begin(), part.end());
        }
        at += 12 + length;
    }
    return packed;
}

// How many bytes can be unpacked from cut ones.
std::size_t UnpackedSize(const PngBytes& packed, std::size_t most) {
    PngBytes out(most);
    z_stream stream{};
    ::inflateInit(&stream);
    stream.next_in = reinterpret_cast<Bytef*>(const_cast<std::byte*>(packed.data()));
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(out.data());
    stream.avail_out = static_cast<uInt>(out.size());
    ::inflate(&stream, Z_SYNC_FLUSH);
    ::inflateEnd(&stream);
    return most - stream.avail_out;
}

// The whole lines of `unpacked` bytes. In the last pass of an interlaced picture every second line
// comes; the first pass has no line that is whole.
std::int32_t LinesIn(const PngShape& shape, std::size_t unpacked, std::size_t all) {
    const std::size_t line =
        1 + static_cast<std::size_t>((shape.width * shape.Channels() * shape.bits + 7) / 8);
    if (!shape.interlaced) {
        return static_cast<std::int32_t>(unpacked / line);
    }
    const auto missing = static_cast<std::int32_t>((all - unpacked + line - 1) / line);
    const std::int32_t ofLastPass = shape.height / 2;
    if (missing == 0) {
        return shape.height;
    }
    return missing > ofLastPass ? 0 : 2 * (ofLastPass - missing) + 1;
}

class CutPng : public testing::TestWithParam<PngShape> {};

TEST_P(CutPng, KeepsTheLinesThatAreThere) {
    std::mt19937 random(1);
    const RandomPng png(GetParam(), random);
    const std::size_t all = PngLines(png.shape, png.samples).size();
    const PngWords whole = Read(png.File(), PngWanted::Colours).pixels;
    for (const std::size_t most : {std::size_t{1} << 20U, std::size_t{17}}) {
        const PngBytes file = FileInPieces(png, most);
        for (std::size_t length = 0; length < file.size(); ++length) {
            SCOPED_TRACE("first " + std::to_string(length) + " bytes");
            const auto cut = std::span(file).first(length);
            const auto packed = PackedIn(cut);
            const auto read = TryRead(cut, PngWanted::Colours);
            ASSERT_EQ(read.has_value(), packed.has_value());
            if (!read) {
                continue;
            }
            const std::int32_t lines = LinesIn(png.shape, UnpackedSize(*packed, all), all);
            ASSERT_EQ(read->lines, lines);
            const auto count = static_cast<std::ptrdiff_t>(lines) * read->width;
            ASSERT_TRUE(std::equal(whole.begin(), whole.begin() + count, read->pixels.begin()));
            // The other words are those of the picture, or are as they were.
            for (std::size_t i = 0; i < whole.size(); ++i) {
                ASSERT_TRUE(read->pixels[i] == whole[i] || read->pixels[i] == kUnread) << i;
            }
            if (!png.shape.interlaced) {
                ASSERT_TRUE(std::all_of(read->pixels.begin() + count, read->pixels.end(),
                                        [](std::uint32_t word) { return word == kUnread; }));
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, CutPng, testing::ValuesIn(SomeShapes()),
                         [](const testing::TestParamInfo<PngShape>& row) {
                             return "Type" + std::to_string(row.param.colorType) + "Bits" +
                                    std::to_string(row.param.bits) +
                                    (row.param.interlaced ? "Interlaced" : "");
                         });

}  // namespace
}  // namespace scenara::test
