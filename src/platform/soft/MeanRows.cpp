// SPDX-License-Identifier: MIT
//
// Plain loops, which compilers turn into vectors. They are compiled once for every processor, and
// once for those with AVX2: that takes half the time.
#include "platform/soft/MeanRows.h"

#include <cstddef>

#include "platform/soft/RowPaths.h"

#define ALWAYS_INLINE [[gnu::always_inline]] inline

namespace scenara::soft {
namespace {

ALWAYS_INLINE void Add(const std::uint8_t* __restrict bytes, float part, float* __restrict sums,
                       std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        sums[i] += static_cast<float>(bytes[i]) * part;
    }
}

ALWAYS_INLINE void Round(const float* __restrict sums, float share, std::uint8_t* __restrict bytes,
                         std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        const float raised = sums[i] * share + 0.5F;
        bytes[i] = static_cast<std::uint8_t>(static_cast<std::int32_t>(raised));
    }
}

#if SCENARA_ROWS_X86
#define AVX2 [[gnu::target("avx2,bmi")]]

AVX2 void AddAvx2(const std::uint8_t* bytes, float part, float* sums, std::size_t count) {
    Add(bytes, part, sums, count);
}

AVX2 void RoundAvx2(const float* sums, float share, std::uint8_t* bytes, std::size_t count) {
    Round(sums, share, bytes, count);
}
#endif

bool HasAvx2() {
    return BestRowPath() >= RowPath::Avx2;
}

}  // namespace

void AddChannels(const std::uint32_t* row, float part, std::span<float> sums) {
    const auto* const bytes = reinterpret_cast<const std::uint8_t*>(row);
#if SCENARA_ROWS_X86
    if (HasAvx2()) {
        AddAvx2(bytes, part, sums.data(), sums.size());
        return;
    }
#endif
    Add(bytes, part, sums.data(), sums.size());
}

void RoundChannels(std::span<const float> sums, float share, std::uint32_t* shown) {
    auto* const bytes = reinterpret_cast<std::uint8_t*>(shown);
#if SCENARA_ROWS_X86
    if (HasAvx2()) {
        RoundAvx2(sums.data(), share, bytes, sums.size());
        return;
    }
#endif
    Round(sums.data(), share, bytes, sums.size());
}

}  // namespace scenara::soft
