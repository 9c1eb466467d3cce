// SPDX-License-Identifier: MIT
#include <utility>

#include "samplemaker/ByteWriter.h"
#include "samplemaker/PackingParts.h"
#include "samplemaker/Sff2Packing.h"

namespace scenara::samplemaker {
namespace {

constexpr std::size_t kLongestRle8Run = 63;

bool OnlyAsRun(std::uint8_t colour) {
    return (colour & 0xC0U) == 0x40U;
}

void WriteRle8Run(ByteWriter& out, std::size_t count, std::uint8_t colour) {
    out.U8(static_cast<std::uint8_t>(0x40U | count));
    out.U8(colour);
}

std::vector<std::byte> ShortestRle8(std::span<const std::uint8_t> pixels) {
    ByteWriter out;
    for (std::size_t at = 0; at < pixels.size();) {
        const std::size_t run = RunAt(pixels, at, kLongestRle8Run);
        if (run > 1 || OnlyAsRun(pixels[at])) {
            WriteRle8Run(out, run, pixels[at]);
        } else {
            out.U8(pixels[at]);
        }
        at += run;
    }
    return std::move(out).Take();
}

std::vector<std::byte> AnyRle8(std::span<const std::uint8_t> pixels, Random& random) {
    ByteWriter out;
    for (std::size_t at = 0; at < pixels.size();) {
        if (OneIn(random, 8)) {
            WriteRle8Run(out, 0, static_cast<std::uint8_t>(random.Whole(0, 255)));
        }
        std::size_t count = 1;
        if (OnlyAsRun(pixels[at]) || OneIn(random, 2)) {
            count = AnyRun(random, pixels, at, kLongestRle8Run);
            WriteRle8Run(out, count, pixels[at]);
        } else {
            out.U8(pixels[at]);
        }
        at += count;
    }
    return std::move(out).Take();
}

}  // namespace

std::vector<std::byte> PackRle8(std::span<const std::uint8_t> pixels, PackingChoice choice) {
    if (choice.seed == 0) {
        return ShortestRle8(pixels);
    }
    Random random(choice.seed);
    return AnyRle8(pixels, random);
}

}  // namespace scenara::samplemaker
