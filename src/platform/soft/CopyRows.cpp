// SPDX-License-Identifier: MIT
#include "platform/soft/CopyRows.h"

#include <algorithm>

#include "platform/soft/Coverage.h"
#include "platform/soft/RowPaths.h"

namespace scenara::soft {
namespace {

RowPath PathFor(const TexelRows& rows, RowPath wanted) {
    return rows.width < kBlockTexels ? RowPath::Plain : std::min(wanted, BestRowPath());
}

}  // namespace

RowPath BestRowPath() {
#if SCENARA_ROWS_X86
    if (__builtin_cpu_supports("avx2") != 0 && __builtin_cpu_supports("bmi") != 0) {
        const bool masksStores =
            __builtin_cpu_supports("avx512f") != 0 && __builtin_cpu_supports("avx512vl") != 0;
        return masksStores ? RowPath::Avx512 : RowPath::Avx2;
    }
    if (__builtin_cpu_supports("sse2") != 0) {
        return RowPath::Sse2;
    }
#endif
    return RowPath::Plain;
}

void CopyRows(const TexelRows& rows, RowPath path) {
    switch (PathFor(rows, path)) {
#if SCENARA_ROWS_X86
        case RowPath::Avx512:
        case RowPath::Avx2: rows::CopyAvx2(rows); break;
        case RowPath::Sse2: rows::CopySse2(rows); break;
#endif
        default: rows::CopyPlain(rows);
    }
}

void MaskRows(const TexelRows& rows, RowPath path) {
    switch (PathFor(rows, path)) {
#if SCENARA_ROWS_X86
        case RowPath::Avx512: rows::MaskAvx512(rows); break;
        case RowPath::Avx2: rows::MaskAvx2(rows); break;
        case RowPath::Sse2: rows::MaskSse2(rows); break;
#endif
        default: rows::MaskPlain(rows);
    }
}

}  // namespace scenara::soft
