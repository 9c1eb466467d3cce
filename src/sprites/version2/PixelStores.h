// SPDX-License-Identifier: MIT
//
// Stores of many pixels at once, for the unpacking of version 2 pixels.
//
// They write whole vectors, so that short runs and copies of any length are the same few
// instructions, and go past what was asked for by less than a vector. The next store overwrites
// that. Whoever calls one sees to it that there is room for all that it may store.
//
// Vectors are those that every x86-64 processor has; elsewhere the compiler makes what it can of
// four words. (Those of eight words were measured: RLE5 gains a seventh at most, LZ5 nothing.)
#pragma once

#include <cstddef>
#include <cstdint>

#if defined(__SSE2__)
#include <emmintrin.h>
#else
#include <array>
#include <cstring>
#endif

namespace scenara::unpack {

// Pixels that FillPixels and CopyPixels store at once.
inline constexpr std::size_t kFillStep = 16;
inline constexpr std::size_t kCopyStep = 8;

#if defined(__SSE2__)

using FourPixels = __m128i;

inline FourPixels FourOf(std::uint32_t color) {
    return _mm_set1_epi32(static_cast<int>(color));
}
inline FourPixels LoadFour(const std::uint32_t* pixels) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(pixels));
}
inline void StoreFour(std::uint32_t* pixels, FourPixels four) {
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(pixels), four);
}

#else

using FourPixels = std::array<std::uint32_t, 4>;

inline FourPixels FourOf(std::uint32_t color) {
    return {color, color, color, color};
}
inline FourPixels LoadFour(const std::uint32_t* pixels) {
    FourPixels four;
    std::memcpy(four.data(), pixels, sizeof four);
    return four;
}
inline void StoreFour(std::uint32_t* pixels, FourPixels four) {
    std::memcpy(pixels, four.data(), sizeof four);
}

#endif

// Exactly eight pixels of a colour.
inline void FillEight(std::uint32_t* pixels, std::uint32_t color) {
    const FourPixels four = FourOf(color);
    StoreFour(pixels, four);
    StoreFour(pixels + 4, four);
}

// `count` pixels of a colour (1 or more), and as many more as the last step stores.
inline void FillPixels(std::uint32_t* pixels, std::uint32_t color, std::size_t count) {
    const FourPixels four = FourOf(color);
    for (std::size_t done = 0;; done += kFillStep) {
        StoreFour(pixels + done, four);
        StoreFour(pixels + done + 4, four);
        StoreFour(pixels + done + 8, four);
        StoreFour(pixels + done + 12, four);
        if (count <= done + kFillStep) [[likely]] {
            return;
        }
    }
}

// Eight pixels from `from`, all read before one is written.
inline void CopyEight(std::uint32_t* pixels, const std::uint32_t* from) {
    const FourPixels first = LoadFour(from);
    const FourPixels second = LoadFour(from + 4);
    StoreFour(pixels, first);
    StoreFour(pixels + 4, second);
}

// `count` pixels, each of them what stands `back` (1 or more) before it, whether that was there or
// is written here. Stores less than two steps more than that.
inline void CopyPixels(std::uint32_t* pixels, std::size_t back, std::size_t count) {
    const std::uint32_t* const from = pixels - back;
    if (back == 1) {
        FillPixels(pixels, *from, count);
        return;
    }
    const std::uint32_t* const end = pixels + count;
    // What is out repeats itself after `back` pixels, and so after twice as many: each round moves
    // on by the distance that there is, which doubles it.
    std::size_t distance = back;
    while (distance < kCopyStep) {
        CopyEight(pixels, from);
        pixels += distance;
        distance *= 2;
    }
    for (; pixels < end; pixels += kCopyStep) {
        CopyEight(pixels, pixels - distance);
    }
}

}  // namespace scenara::unpack
