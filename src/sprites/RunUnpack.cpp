// SPDX-License-Identifier: MIT
#include "sprites/RunUnpack.h"

#include <algorithm>

#include "sprites/RunUnpackPaths.h"

namespace scenara::unpack {

template <RunMark kMark>
UnpackResult UnpackPlain(std::span<const std::byte> packed, const ColorTable& colors,
                         std::span<std::uint32_t> pixels, std::size_t wanted, UnpackResult from) {
    constexpr auto kMarkBits = static_cast<std::size_t>(kMark);
    auto [at, written] = from;
    while (written < wanted && at < packed.size()) {
        auto value = std::to_integer<std::size_t>(packed[at]);
        std::size_t count = 1;
        std::size_t length = 1;
        if ((value & 0xC0U) == kMarkBits) {
            if (packed.size() - at < 2) {
                break;
            }
            count = std::min(value - kMarkBits, wanted - written);
            value = std::to_integer<std::size_t>(packed[at + 1]);
            length = 2;
        }
        std::ranges::fill(pixels.subspan(written, count), colors[value]);
        at += length;
        written += count;
    }
    return {at, written};
}

// For the vector paths, which end with it.
template UnpackResult UnpackPlain<RunMark::Pcx>(std::span<const std::byte>, const ColorTable&,
                                                std::span<std::uint32_t>, std::size_t,
                                                UnpackResult);
template UnpackResult UnpackPlain<RunMark::Rle8>(std::span<const std::byte>, const ColorTable&,
                                                 std::span<std::uint32_t>, std::size_t,
                                                 UnpackResult);

namespace {

template <RunMark kMark>
UnpackResult UnpackOn(UnpackPath path, std::span<const std::byte> packed, const ColorTable& colors,
                      std::span<std::uint32_t> pixels, std::size_t wanted) {
    switch (path) {
#if SCENARA_UNPACK_X86
        case UnpackPath::Avx2: return UnpackAvx2<kMark>(packed, colors, pixels, wanted);
        case UnpackPath::Sse2: return UnpackSse2<kMark>(packed, colors, pixels, wanted);
#endif
        default: return UnpackPlain<kMark>(packed, colors, pixels, wanted);
    }
}

}  // namespace
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
    path = std::min(path, BestUnpackPath());
    wanted = std::min(wanted, pixels.size());
    return mark == RunMark::Pcx
               ? unpack::UnpackOn<RunMark::Pcx>(path, packed, colors, pixels, wanted)
               : unpack::UnpackOn<RunMark::Rle8>(path, packed, colors, pixels, wanted);
}

}  // namespace scenara
