// SPDX-License-Identifier: MIT
//
// Which of the library's elements may take part in playing a file that nobody vouches for.
//
// Only what leads from a local file to sound: nothing that decodes pictures, and nothing that
// follows addresses found in the file. Formats that are read into memory whole (modules, MIDI) may
// be of 64 MB, any file of 1 GB.
#pragma once

#include <cstdint>

#include <gst/gst.h>

namespace scenara {

inline constexpr std::uint64_t kLargestFile = std::uint64_t{1} << 30;
inline constexpr std::uint64_t kLargestWholeFile = std::uint64_t{1} << 26;

// Cuts off what the decoder behind `pad` is known to send too much of. The module player fills its
// last block only in part, and sends the whole of it: without this every tune ends with a burst of
// whatever was in memory.
void TrimDecoded(GstPad* pad);

// Restricts `decodebin` for a file of `fileSize` bytes.
void RestrictDecoding(GstElement* decodebin, std::uint64_t fileSize);

}  // namespace scenara
