// SPDX-License-Identifier: MIT
//
// The code paths behind CopyRows.h. For CopyRows*.cpp only.
#pragma once

#include "platform/soft/CopyRows.h"

#if defined(__x86_64__) || defined(__i386__)
#define SCENARA_ROWS_X86 1
#else
#define SCENARA_ROWS_X86 0
#endif

namespace scenara::soft::rows {

// Any width.
void CopyPlain(const TexelRows& rows);
void MaskPlain(const TexelRows& rows);

#if SCENARA_ROWS_X86
// From kBlockTexels columns on.
void CopySse2(const TexelRows& rows);
void MaskSse2(const TexelRows& rows);
void CopyAvx2(const TexelRows& rows);
void MaskAvx2(const TexelRows& rows);
void MaskAvx512(const TexelRows& rows);
#endif

}  // namespace scenara::soft::rows
