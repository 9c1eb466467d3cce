// SPDX-License-Identifier: MIT
//
// Any bytes as packed pixels of a version 2 archive, unpacked with and without slack behind them,
// beside the format by its letter. The first byte says which packing, the next two how many pixels
// are wanted, the lower one first.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "sprites/LiteralUnpack.h"
#include "sprites/version2/Sff2Unpack.h"
#include "support/FuzzChecks.h"

namespace {

using namespace scenara;

constexpr std::size_t kHead = 3;

ColorTable Colors() {
    ColorTable colors{};
    for (std::size_t i = 0; i < colors.size(); ++i) {
        colors[i] = static_cast<std::uint32_t>(i * 0x01010101U);
    }
    return colors;
}

void Compare(Sff2Packing packing, std::span<const std::byte> packed, std::size_t wanted,
             std::size_t slack, const test::LiteralUnpacked& literal) {
    static const ColorTable colors = Colors();
    // As large as it may be used, so that the sanitizer sees what goes beyond.
    std::vector<std::uint32_t> pixels(wanted + slack);
    const Sff2Unpacked result = UnpackSff2(packing, packed, colors, pixels, wanted);
    test::Require(result.written == literal.indices.size(), "as many pixels as by the letter");
    test::Require(result.damaged == literal.damaged, "damaged as by the letter");
    test::Require(
        std::equal(literal.indices.begin(), literal.indices.end(), pixels.begin(),
                   [](std::uint8_t index, std::uint32_t word) { return colors[index] == word; }),
        "the pixels are those by the letter");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHead) {
        return 0;
    }
    const auto packing = static_cast<Sff2Packing>(data[0] % 3U);
    const std::size_t wanted = data[1] | std::size_t{data[2]} << 8U;
    const auto packed = std::as_bytes(std::span(data, size)).subspan(kHead);
    const auto literal = test::LiteralUnpack(packed, wanted).Unpack(packing);
    Compare(packing, packed, wanted, kUnpackSlack, literal);
    Compare(packing, packed, wanted, 0, literal);
    return 0;
}
