// SPDX-License-Identifier: MIT
#include <algorithm>

#include "sprites/PcxUnpackPaths.h"

namespace scenara::unpack {

UnpackResult UnpackPlain(std::span<const std::byte> packed, const ColorTable& colors,
                         std::span<std::uint32_t> pixels, std::size_t wanted, UnpackResult from) {
    auto [at, written] = from;
    while (written < wanted && at < packed.size()) {
        auto value = std::to_integer<std::size_t>(packed[at]);
        std::size_t count = 1;
        std::size_t length = 1;
        if (value >= 192) {
            if (packed.size() - at < 2) {
                break;
            }
            count = std::min(value - 192, wanted - written);
            value = std::to_integer<std::size_t>(packed[at + 1]);
            length = 2;
        }
        std::ranges::fill(pixels.subspan(written, count), colors[value]);
        at += length;
        written += count;
    }
    return {at, written};
}

}  // namespace scenara::unpack
