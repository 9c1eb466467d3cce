// SPDX-License-Identifier: MIT
//
// Sff2Palettes: the colours of a version 2 archive's palettes (Sff2Nodes.h has the table).
//
// The data of a palette are 4 bytes a colour: red, green, blue, and one that is alpha from version
// 2.01 on. In 2.00 it is rubbish and colours are opaque. Colour 0 has alpha 0 in every palette, and
// keeps its colour: pictures show it where nothing is masked. Colours that are not there are black
// and opaque.
//
// Bad input: a palette that is not there, whose data are cut, or whose link does not go back, is
// black as far as that goes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/Files.h"
#include "sprites/RunUnpack.h"
#include "sprites/version2/Sff2Nodes.h"

namespace scenara {

struct Sff2Palette {
    ColorTable colors{};
    std::string problem;  // for people; empty: there is none
    bool reported = false;
};

class Sff2Palettes {
public:
    // The archive outlives it.
    Sff2Palettes(InputFile& archive, const Sff2Header& header);

    // The palette whose colours the one of this number has, be it by links: equal for two that
    // cannot differ.
    [[nodiscard]] std::uint32_t OwnerOf(std::uint16_t number) const;

    // In the colours of this palette. The reference holds for good.
    [[nodiscard]] Sff2Palette& ColorsOf(std::uint16_t number);

private:
    [[nodiscard]] Sff2Palette Read(std::uint16_t number);
    [[nodiscard]] std::size_t ReadWhatIsThere(std::uint64_t start, std::span<std::byte> bytes);

    InputFile& archive_;
    Sff2Header header_;
    std::vector<Sff2PaletteNode> nodes_;
    std::vector<std::uint32_t> owners_;                      // of each
    std::unordered_map<std::uint32_t, std::size_t> places_;  // by owner, in known_
    std::deque<Sff2Palette> known_;
};

}  // namespace scenara
