// SPDX-License-Identifier: MIT
#include "sprites/version1/SubfilePalette.h"

#include <algorithm>
#include <vector>

#include "sprites/PcxLines.h"

namespace scenara {
namespace {

constexpr std::byte kPaletteMark{12};

bool CanBePalette(InputFile& archive, const PcxPlace& data, std::uint64_t start,
                  const PcxHeader& header) {
    if (start <= data.start || start > archive.Size()) {
        return false;
    }
    const std::uint64_t before = start - data.start;
    std::span<const std::byte> read = data.read;
    std::byte mark{};
    if (before <= read.size()) {
        mark = read[static_cast<std::size_t>(before - 1)];
    } else if (archive.ReadAt(start - 1, std::span(&mark, 1)) == 0) {
        return false;
    }
    if (mark == kPaletteMark) {
        return true;
    }
    if (header.NeededBytes() > MostUnpackedBytes(header, before)) {
        return false;
    }
    const auto useful = static_cast<std::size_t>(std::min(before, MostPackedBytes(header)));
    std::vector<std::byte> more;
    if (read.size() < useful) {
        more.resize(useful);
        read = std::span(more).first(archive.ReadAt(data.start, more));
    }
    read = read.first(std::min(read.size(), useful));
    return UnpackedLength(read, header.IsRunLength(), header.NeededBytes()) >= header.NeededBytes();
}

}  // namespace

std::optional<PcxHeader> ReadSubfilePcxHeader(InputFile& archive, const Subfile& subfile) {
    std::array<std::byte, kPcxHeaderSize> bytes{};
    if (archive.ReadAt(subfile.Start(), bytes) < bytes.size()) {
        return std::nullopt;
    }
    return ReadPcxHeader(bytes);
}

bool ReadPalette(InputFile& archive, const PcxPlace& data, const PcxHeader* lookedAt,
                 PaletteBytes& palette) {
    if (data.end < kPcxPaletteSize) {
        return false;
    }
    const std::uint64_t start = data.end - kPcxPaletteSize;
    if (lookedAt != nullptr && !CanBePalette(archive, data, start, *lookedAt)) {
        return false;
    }
    // Nearly always it was read with the pixels.
    if (start >= data.start && data.end - data.start <= data.read.size()) {
        const auto place = static_cast<std::size_t>(start - data.start);
        std::ranges::copy(data.read.subspan(place, kPcxPaletteSize), palette.begin());
        return true;
    }
    palette.fill(std::byte{0});
    return archive.ReadAt(start, palette) == palette.size();
}

bool ReadSubfilePalette(InputFile& archive, const Subfile& subfile, bool looksAtIt,
                        PaletteBytes& palette) {
    if (subfile.length < static_cast<Long>(kPcxPaletteSize)) {
        return false;
    }
    std::optional<PcxHeader> header;
    if (looksAtIt) {
        header = ReadSubfilePcxHeader(archive, subfile);
        if (!header || !header->Is256Colors()) {
            return false;
        }
    }
    const PcxPlace data = {subfile.Start() + kPcxHeaderSize,
                           subfile.Start() + static_cast<std::uint64_t>(subfile.length),
                           {}};
    return ReadPalette(archive, data, header ? &*header : nullptr, palette);
}

}  // namespace scenara
