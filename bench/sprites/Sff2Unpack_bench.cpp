// SPDX-License-Identifier: MIT
//
// The packings of version 2 archives to 32-bit pixels, beside a plain decoder and beside a memcpy
// of the finished pictures.
//
// The pictures are those of PcxUnpack_bench.cpp, packed by the sample maker; for the packings of 5
// bits their colours are folded into 32, which leaves the runs as long as they were or longer. One
// iteration unpacks all pictures of a set, one behind the other into memory that is touched before.
// Items are pixels, bytes are packed ones. Before anything is timed every picture is compared with
// the one that was packed; a difference ends the benchmark with an error.
#include <algorithm>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "samplemaker/Sff2Packing.h"
#include "sprites/PcxLines.h"
#include "sprites/PlainSff2Unpack.h"
#include "sprites/version2/Sff2Unpack.h"
#include "support/SamplePictures.h"

namespace scenara::bench {
namespace {

std::vector<std::uint8_t> IndicesOf(const SamplePicture& picture, Sff2Packing packing) {
    std::vector<std::uint8_t> indices(picture.PixelsInMemory());
    PcxLines(picture.Packed(), true).Next(indices);
    if (packing != Sff2Packing::Rle8) {
        for (std::uint8_t& index : indices) {
            index = index == 0 ? std::uint8_t{0} : static_cast<std::uint8_t>(1 + index % 31);
        }
    }
    return indices;
}

std::vector<std::byte> Pack(Sff2Packing packing, std::span<const std::uint8_t> indices) {
    switch (packing) {
        case Sff2Packing::Rle8: return samplemaker::PackRle8(indices);
        case Sff2Packing::Rle5: return samplemaker::PackRle5(indices);
        case Sff2Packing::Lz5: return samplemaker::PackLz5(indices);
    }
    return {};
}

struct PackedPicture {
    const SamplePicture& sample;
    std::vector<std::byte> packed;
    std::vector<std::uint32_t> finished;
    std::size_t place;  // of its first word in the memory of all textures
};

struct PackedSet {
    PackedSet(const SampleSet& from, Sff2Packing how)
        : packing(how), textures(from.pixels + kUnpackSlack) {
        for (const SamplePicture& sample : from.pictures) {
            const std::vector<std::uint8_t> indices = IndicesOf(sample, packing);
            std::vector<std::uint32_t> finished;
            for (const std::uint8_t index : indices) {
                finished.push_back(sample.colors[index]);
            }
            pictures.push_back({sample, Pack(packing, indices), std::move(finished), pixels});
            pixels += indices.size();
            bytes += pictures.back().packed.size();
        }
    }

    std::span<std::uint32_t> Place(const PackedPicture& picture, std::size_t slack) {
        return std::span(textures).subspan(picture.place, picture.finished.size() + slack);
    }

    Sff2Packing packing;
    std::vector<PackedPicture> pictures;
    std::size_t pixels = 0;
    std::size_t bytes = 0;
    std::vector<std::uint32_t> textures;
};

struct MemcpyRow {
    static std::size_t Make(PackedSet& set, const PackedPicture& picture) {
        std::memcpy(set.Place(picture, 0).data(), picture.finished.data(),
                    picture.finished.size() * sizeof(std::uint32_t));
        return picture.finished.size();
    }
};

struct PlainRow {
    static std::size_t Make(PackedSet& set, const PackedPicture& picture) {
        return PlainUnpackSff2(set.packing, picture.packed, picture.sample.colors,
                               set.Place(picture, 0));
    }
};

struct OursRow {
    static std::size_t Make(PackedSet& set, const PackedPicture& picture) {
        return UnpackSff2(set.packing, picture.packed, picture.sample.colors,
                          set.Place(picture, kUnpackSlack), picture.finished.size())
            .written;
    }
};

template <class Row>
void CheckPictures(PackedSet& set) {
    for (const PackedPicture& picture : set.pictures) {
        std::ranges::fill(set.Place(picture, 0), 0x12345678U);
        if (Row::Make(set, picture) != picture.finished.size() ||
            !std::ranges::equal(set.Place(picture, 0), picture.finished)) {
            throw std::runtime_error("another picture: " + picture.sample.name);
        }
    }
}

template <Sff2Packing kPacking, const SampleSet& (*kPictures)()>
PackedSet& SetOf() {
    static PackedSet set(kPictures(), kPacking);
    return set;
}

template <class Row, Sff2Packing kPacking, const SampleSet& (*kPictures)()>
void Unpack(benchmark::State& state) {
    try {
        PackedSet& set = SetOf<kPacking, kPictures>();
        [[maybe_unused]] static const bool checked = (CheckPictures<Row>(set), true);
        if (set.pictures.empty()) {
            throw std::runtime_error("no pictures");
        }
        for ([[maybe_unused]] const auto iteration : state) {
            for (const PackedPicture& picture : set.pictures) {
                benchmark::DoNotOptimize(Row::Make(set, picture));
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
#define UNPACK_ROW(packing, row, name)                                        \
    BENCHMARK_TEMPLATE(Unpack, row, Sff2Packing::packing, GeneratedPictures)  \
        ->Name("Unpack/" #packing name "/generated")                          \
        ->Unit(benchmark::kMillisecond);                                      \
    BENCHMARK_TEMPLATE(Unpack, row, Sff2Packing::packing, SampleDataPictures) \
        ->Name("Unpack/" #packing name "/sampleData")                         \
        ->Unit(benchmark::kMillisecond)
#define UNPACK_ROWS(packing)                  \
    UNPACK_ROW(packing, MemcpyRow, "Memcpy"); \
    UNPACK_ROW(packing, PlainRow, "Plain");   \
    UNPACK_ROW(packing, OursRow, "Ours")

UNPACK_ROWS(Rle8);
UNPACK_ROWS(Rle5);
UNPACK_ROWS(Lz5);
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
