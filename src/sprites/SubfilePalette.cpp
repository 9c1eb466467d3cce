// SPDX-License-Identifier: MIT
#include "sprites/SubfilePalette.h"

#include <algorithm>
#include <vector>

#include "sprites/PcxLines.h"

namespace scenara {
namespace {

constexpr std::byte kPaletteMark{12};

std::uint64_t PaletteStart(const SubfileHeader& subfile, std::uint32_t position) {
    constexpr auto kSize = static_cast<Long>(kPcxPaletteSize);
    return std::uint64_t{position} + kSubfileHeaderSize +
           static_cast<std::uint64_t>(subfile.length - kSize);
}

bool IsLongEnough(const SubfileHeader& subfile) {
    return subfile.length >= static_cast<Long>(kPcxPaletteSize);
}

}  // namespace

bool ReadSubfilePalette(InputFile& archive, const SubfileHeader& subfile, std::uint32_t position,
                        PaletteBytes& palette) {
    palette.fill(std::byte{0});
    return IsLongEnough(subfile) &&
           archive.ReadAt(PaletteStart(subfile, position), palette) == palette.size();
}

bool IsPaletteAt(InputFile& archive, const PcxHeader& header, std::uint64_t dataStart,
                 std::uint64_t paletteStart, std::span<const std::byte> read) {
    if (paletteStart <= dataStart || paletteStart > archive.Size()) {
        return false;
    }
    const std::uint64_t before = paletteStart - dataStart;
    std::byte mark{};
    if (before <= read.size()) {
        mark = read[static_cast<std::size_t>(before - 1)];
    } else if (archive.ReadAt(paletteStart - 1, std::span(&mark, 1)) == 0) {
        return false;
    }
    if (mark == kPaletteMark) {
        return true;
    }
    if (header.NeededBytes() > MostUnpackedBytes(header, before)) {
        return false;
    }
    const auto useful = static_cast<std::size_t>(std::min(before, MostPackedBytes(header)));
    std::vector<std::byte> data;
    if (read.size() < useful) {
        data.resize(useful);
        read = std::span(data).first(archive.ReadAt(dataStart, data));
    }
    read = read.first(std::min(read.size(), useful));
    return UnpackedLength(read, header.IsRunLength(), header.NeededBytes()) >= header.NeededBytes();
}

bool BringsPalette(InputFile& archive, const SubfileHeader& subfile, std::uint32_t position) {
    std::array<std::byte, kPcxHeaderSize> bytes{};
    const std::uint64_t start = std::uint64_t{position} + kSubfileHeaderSize;
    if (!IsLongEnough(subfile) || archive.ReadAt(start, bytes) < bytes.size()) {
        return false;
    }
    const PcxHeader header = ReadPcxHeader(bytes);
    return header.Is256Colors() && IsPaletteAt(archive, header, start + kPcxHeaderSize,
                                               PaletteStart(subfile, position), {});
}

}  // namespace scenara
