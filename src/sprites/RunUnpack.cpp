// SPDX-License-Identifier: MIT
#include "sprites/RunUnpack.h"

#include <algorithm>

#include "sprites/RunUnpackPaths.h"

namespace scenara::unpack {

UnpackResult UnpackPlain(RunMark mark, std::span<const std::byte> packed, const ColorTable& colors,
                         std::span<std::uint32_t> pixels, std::size_t wanted, UnpackResult from) {
    const auto markBits = static_cast<std::size_t>(mark);
    auto [at, written] = from;
    while (written < wanted && at < packed.size()) {
        auto value = std::to_integer<std::size_t>(packed[at]);
        std::size_t count = 1;
        std::size_t length = 1;
        if ((value & 0xC0U) == markBits) {
            if (packed.size() - at < 2) {
                break;
            }
            count = std::min(value - markBits, wanted - written);
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

namespace scenara {

UnpackPath BestUnpackPath() {
#if SCENARA_UNPACK_X86
    if (__builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi") != 0) {
        return UnpackPath::Avx2;
    }
    if (__builtin_cpu_supports("sse2") != 0) {
        return UnpackPath::Sse2;
    }
#endif
    return UnpackPath::Plain;
}

UnpackResult UnpackRuns(RunMark mark, UnpackPath path, std::span<const std::byte> packed,
                        const ColorTable& colors, std::span<std::uint32_t> pixels,
                        std::size_t wanted) {
    wanted = std::min(wanted, pixels.size());
    switch (std::min(path, BestUnpackPath())) {
#if SCENARA_UNPACK_X86
        case UnpackPath::Avx2: return unpack::UnpackAvx2(mark, packed, colors, pixels, wanted);
        case UnpackPath::Sse2: return unpack::UnpackSse2(mark, packed, colors, pixels, wanted);
#endif
        default: return unpack::UnpackPlain(mark, packed, colors, pixels, wanted);
    }
}

}  // namespace scenara
