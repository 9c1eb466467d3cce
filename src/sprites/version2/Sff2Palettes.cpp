// SPDX-License-Identifier: MIT
#include "sprites/version2/Sff2Palettes.h"

#include <algorithm>
#include <array>
#include <map>
#include <span>
#include <utility>

#include "base/RunTimeError.h"

namespace scenara {
namespace {

constexpr std::uint32_t kOpaqueBlack = 0xFF000000;
constexpr std::uint32_t kAlpha = 0xFF000000;

// Owners of the palettes that have no colours: this, and the number.
constexpr std::uint32_t kNone = std::uint32_t{1} << 16U;

constexpr std::size_t kColorSize = 4;

}  // namespace

Sff2Palettes::Sff2Palettes(InputFile& archive, const Sff2Header& header)
    : archive_(archive), header_(header), nodes_(ReadSff2Palettes(archive, header)) {
    std::map<std::pair<std::uint16_t, std::uint16_t>, std::uint32_t> first;
    owners_.reserve(nodes_.size());
    for (std::uint32_t number = 0; number < nodes_.size(); ++number) {
        const Sff2PaletteNode& node = nodes_[number];
        const auto [equal, isFirst] = first.try_emplace({node.group, node.item}, number);
        if (!isFirst) {
            owners_.push_back(owners_[equal->second]);
        } else if (node.length > 0) {
            owners_.push_back(number);
        } else {
            owners_.push_back(node.link < number ? owners_[node.link] : kNone | number);
        }
    }
}

std::uint32_t Sff2Palettes::OwnerOf(std::uint16_t number) const {
    return number < owners_.size() ? owners_[number] : kNone | number;
}

Sff2Palette& Sff2Palettes::ColorsOf(std::uint16_t number) {
    const auto [place, isNew] = places_.try_emplace(OwnerOf(number), known_.size());
    if (isNew) {
        known_.push_back(Read(number));
    }
    return known_[place->second];
}

// A disk that fails costs the colours, not the archive.
std::size_t Sff2Palettes::ReadWhatIsThere(std::uint64_t start, std::span<std::byte> bytes) {
    try {
        return archive_.ReadAt(start, bytes);
    } catch (const RunTimeError&) {
        return 0;
    }
}

Sff2Palette Sff2Palettes::Read(std::uint16_t number) {
    Sff2Palette palette;
    palette.colors.fill(kOpaqueBlack);
    const std::uint32_t owner = OwnerOf(number);
    const std::string name = "Palette " + std::to_string(owner & ~kNone);
    if (owner < kNone) {
        const Sff2PaletteNode& node = nodes_[owner];
        std::array<std::byte, std::tuple_size_v<ColorTable> * kColorSize> bytes{};
        const std::size_t wanted = std::min(std::size_t{node.length}, bytes.size());
        const std::size_t count = ReadWhatIsThere(std::uint64_t{header_.ldata} + node.offset,
                                                  std::span(bytes).first(wanted));
        for (std::size_t i = 0; i < count / kColorSize; ++i) {
            const auto part = [&](std::size_t which) {
                return std::to_integer<std::uint32_t>(bytes[i * kColorSize + which]);
            };
            const std::uint32_t alpha = header_.alphaCounts ? part(3) << 24U : kAlpha;
            palette.colors[i] = alpha | part(0) << 16U | part(1) << 8U | part(2);
        }
        if (count < wanted) {
            palette.problem = name + " is not whole in the file, the rest is black..";
        }
    } else if (number < nodes_.size()) {
        palette.problem = name + " is linked to none before it, it is black..";
    } else {
        palette.problem = name + " is not in the file, it is black..";
    }
    palette.colors[0] &= ~kAlpha;
    return palette;
}

}  // namespace scenara
