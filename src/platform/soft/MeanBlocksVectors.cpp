// SPDX-License-Identifier: MIT
#include "platform/soft/RowPaths.h"

#if SCENARA_ROWS_X86

#include <cstddef>
#include <cstdint>

#include "platform/soft/Avx2Means.h"
#include "platform/soft/Avx2Pixels.h"
#include "platform/soft/Coverage.h"

namespace scenara::soft::eight {
namespace {

using rows::MeanBlocks;
using rows::MeanLines;

// Takes all by value, for of a copy of their own compilers know that no texel is stored in it.
template <typename Picks>
struct Means {
    [[gnu::always_inline]] static inline void Write(const MeanBlocks means, std::uint64_t blocks,
                                                    const MeanLines lines, std::uint32_t* texels) {
        while (blocks != 0) {
            const auto block = static_cast<std::ptrdiff_t>(__builtin_ctzll(blocks));
            blocks &= blocks - 1;
            const std::ptrdiff_t base = means.picked.bases[block];
            __builtin_prefetch(lines.aheadAbove + base);
            __builtin_prefetch(lines.aheadBelow + base);
            Picks::WriteBlock(means, block * kBlockTexels, lines, base,
                              texels + means.picked.begins[block]);
        }
    }
};

struct Avx2Means : Means<Avx2Means> {
    AVX2 static inline void WriteBlock(const MeanBlocks& means, std::ptrdiff_t first,
                                       const MeanLines& lines, std::ptrdiff_t base,
                                       std::uint32_t* texels) {
        using Picks = Avx2Picks;
        const __m256i left = Load(means.picked.places + first);
        const __m256i right = Load(means.rightPlaces + first);
        StoreMean({Picks::Pick(lines.above + base, left), Picks::Pick(lines.above + base, right),
                   Picks::Pick(lines.below + base, left), Picks::Pick(lines.below + base, right)},
                  Load(means.parts + first), PartsBelow(lines.partsBelow), lines.alphas, texels);
    }
};

struct Avx512Means : Means<Avx512Means> {
    AVX512 static inline void WriteBlock(const MeanBlocks& means, std::ptrdiff_t first,
                                         const MeanLines& lines, std::ptrdiff_t base,
                                         std::uint32_t* texels) {
        using Picks = Avx512Picks;
        const __m256i left = Load(means.picked.places + first);
        const __m256i right = Load(means.rightPlaces + first);
        StoreMean({Picks::Pick(lines.above + base, left), Picks::Pick(lines.above + base, right),
                   Picks::Pick(lines.below + base, left), Picks::Pick(lines.below + base, right)},
                  Load(means.parts + first), PartsBelow(lines.partsBelow), lines.alphas, texels);
    }
};

}  // namespace
}  // namespace scenara::soft::eight

namespace scenara::soft::rows {

AVX2 void MeanAvx2(const MeanBlocks& means, std::uint64_t blocks, const MeanLines& lines,
                   std::uint32_t* texels) {
    eight::Avx2Means::Write(means, blocks, lines, texels);
}

AVX512 void MeanAvx512(const MeanBlocks& means, std::uint64_t blocks, const MeanLines& lines,
                       std::uint32_t* texels) {
    eight::Avx512Means::Write(means, blocks, lines, texels);
}

}  // namespace scenara::soft::rows

#endif
