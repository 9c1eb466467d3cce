// SPDX-License-Identifier: MIT
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <cstddef>
#include <cstdint>

#include "platform/soft/Avx2Pixels.h"
#include "platform/soft/Coverage.h"

namespace scenara::soft::eight {
namespace {

using rows::PickedBlocks;

// Must become part of a function that is compiled for the path's processors. Takes all by value,
// for of a copy of their own compilers know that no texel is stored in it.
template <typename Picks>
[[gnu::always_inline]] inline void PickBlocks(const PickedBlocks picked, std::uint64_t blocks,
                                              const std::uint32_t* line, const std::uint32_t* ahead,
                                              std::uint32_t* texels) {
    while (blocks != 0) {
        const auto block = static_cast<std::ptrdiff_t>(__builtin_ctzll(blocks));
        blocks &= blocks - 1;
        const std::ptrdiff_t base = picked.bases[block];
        __builtin_prefetch(ahead + base);
        Picks::Copy(line + base, picked.places + block * kBlockTexels,
                    texels + picked.begins[block]);
    }
}

struct Avx2Copies {
    AVX2 static inline void Copy(const std::uint32_t* line, const std::int32_t* places,
                                 std::uint32_t* texels) {
        Store(texels, Avx2Picks::Pick(line, Load(places)));
    }
};

struct Avx512Copies {
    AVX512 static inline void Copy(const std::uint32_t* line, const std::int32_t* places,
                                   std::uint32_t* texels) {
        Store(texels, Avx512Picks::Pick(line, Load(places)));
    }
};

}  // namespace
}  // namespace scenara::soft::eight

namespace scenara::soft::rows {

AVX2 void PickAvx2(const PickedBlocks& picked, std::uint64_t blocks, const std::uint32_t* line,
                   const std::uint32_t* ahead, std::uint32_t* texels) {
    eight::PickBlocks<eight::Avx2Copies>(picked, blocks, line, ahead, texels);
}

AVX512 void PickAvx512(const PickedBlocks& picked, std::uint64_t blocks, const std::uint32_t* line,
                       const std::uint32_t* ahead, std::uint32_t* texels) {
    eight::PickBlocks<eight::Avx512Copies>(picked, blocks, line, ahead, texels);
}

}  // namespace scenara::soft::rows

#endif
