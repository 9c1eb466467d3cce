// SPDX-License-Identifier: MIT
//
// The code paths of UnpackRuns, for RunUnpack*.cpp only.
//
// Each path takes what UnpackRuns takes, with `wanted` no more than pixels.size(), and gives the
// same pixels and result. The vector paths have a loop for each mark. They are no templates: GCC
// forgets for which processors a template is compiled, and then calls in each step what should
// become part of the loop.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include "sprites/RunUnpack.h"

#if defined(__x86_64__) || defined(__i386__)
#define SCENARA_UNPACK_X86 1
#else
#define SCENARA_UNPACK_X86 0
#endif

namespace scenara::unpack {

// Goes on from `from`, which lies between two operations.
UnpackResult UnpackPlain(RunMark mark, std::span<const std::byte> packed, const ColorTable& colors,
                         std::span<std::uint32_t> pixels, std::size_t wanted,
                         UnpackResult from = {0, 0});

#if SCENARA_UNPACK_X86

UnpackResult UnpackSse2(RunMark mark, std::span<const std::byte> packed, const ColorTable& colors,
                        std::span<std::uint32_t> pixels, std::size_t wanted);
UnpackResult UnpackAvx2(RunMark mark, std::span<const std::byte> packed, const ColorTable& colors,
                        std::span<std::uint32_t> pixels, std::size_t wanted);

#endif

}  // namespace scenara::unpack
