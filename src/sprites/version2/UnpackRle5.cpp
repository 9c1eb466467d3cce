// SPDX-License-Identifier: MIT
#include <algorithm>

#include "sprites/version2/PixelStores.h"
#include "sprites/version2/Sff2UnpackLoops.h"

namespace scenara::unpack {
namespace {

// Between two runs: the next byte, how many pixels were made, and how many data bytes the packet
// still has; 0 of them: the next byte begins a packet.
struct Rle5Place {
    std::size_t at = 0;
    std::size_t written = 0;
    std::size_t dataLeft = 0;
};

constexpr std::size_t kLongestFirstRun = 256;
// r, h and the colour byte.
constexpr std::size_t kLongestHead = 3;
// Data bytes that are taken without a look at the spans' ends between them.
constexpr std::size_t kDataAtOnce = 8;
constexpr std::size_t kLongestDataRun = 8;
// Pixels that there has to be room for when a packet or its next data bytes begin. A first run of
// more than kFillStep pixels asks for more.
constexpr std::size_t kRle5Room = kDataAtOnce * kLongestDataRun;
static_assert(kFillStep <= kRle5Room && kRle5Room <= kUnpackSlack);

// Near the ends of the spans.
std::size_t CarefulRle5(std::span<const std::byte> packed, const ColorTable& colors,
                        std::span<std::uint32_t> pixels, std::size_t wanted, Rle5Place place) {
    auto [at, written, dataLeft] = place;
    const auto byteAt = [&](std::size_t index) {
        return std::to_integer<std::size_t>(packed[index]);
    };
    while (written < wanted && at < packed.size()) {
        std::size_t count = 0;
        std::size_t color = 0;
        if (dataLeft > 0) {
            const std::size_t data = byteAt(at);
            count = (data >> 5U) + 1;
            color = data & 31U;
            ++at;
            --dataLeft;
        } else {
            const std::size_t there = packed.size() - at;
            if (there < 2) {
                break;
            }
            const std::size_t head = byteAt(at + 1);
            const std::size_t length = (head & 128U) == 0 ? 2 : 3;
            if (there < length) {
                break;
            }
            count = byteAt(at) + 1;
            color = length == 2 ? 0 : byteAt(at + 2);
            dataLeft = head & 127U;
            at += length;
        }
        count = std::min(count, wanted - written);
        std::ranges::fill(pixels.subspan(written, count), colors[color]);
        written += count;
    }
    return written;
}

// As far as whole heads and groups of data bytes are there, and there is room for what they store.
Rle5Place FastRle5(std::span<const std::byte> packed, const ColorTable& colors,
                   std::span<std::uint32_t> pixels, std::size_t wanted) {
    const std::uint8_t* const bytes = reinterpret_cast<const std::uint8_t*>(packed.data());
    const std::size_t bytesEnd = PlacesFor(kDataAtOnce, packed.size());
    static_assert(kLongestHead <= kDataAtOnce);
    const std::size_t stop = std::min(PlacesFor(kRle5Room, pixels.size()), wanted);
    const std::size_t longStop = PlacesFor(kLongestFirstRun, pixels.size());
    std::uint32_t* const out = pixels.data();
    std::size_t at = 0;
    std::size_t written = 0;
    while (at < bytesEnd && written < stop) {
        const std::size_t count = std::size_t{bytes[at]} + 1;
        if (count > kFillStep && written >= longStop) {
            return {at, written, 0};
        }
        const std::size_t head = bytes[at + 1];
        const std::size_t hasColor = head >> 7U;
        const std::size_t color = bytes[at + 2] & (0 - hasColor);  // 0 without a colour byte
        FillPixels(out + written, colors[color], count);
        written += count;
        at += 2 + hasColor;
        std::size_t left = head & 127U;
        while (left > 0) {
            if (at >= bytesEnd || written >= stop) {
                return {at, written, left};
            }
            const std::size_t now = std::min(left, kDataAtOnce);
            for (std::size_t i = 0; i < now; ++i) {
                const std::size_t data = bytes[at + i];
                FillEight(out + written, colors[data & 31U]);
                written += (data >> 5U) + 1;
            }
            at += now;
            left -= now;
        }
    }
    return {at, written, 0};
}

}  // namespace

Sff2Unpacked UnpackRle5(std::span<const std::byte> packed, const ColorTable& colors,
                        std::span<std::uint32_t> pixels, std::size_t wanted) {
    const Rle5Place reached = FastRle5(packed, colors, pixels, wanted);
    return {std::min(CarefulRle5(packed, colors, pixels, wanted, reached), wanted), false};
}

}  // namespace scenara::unpack
