// SPDX-License-Identifier: MIT
#include "sprites/version2/Sff2Unpack.h"

#include <algorithm>

#include "sprites/version2/Sff2UnpackLoops.h"

namespace scenara {

Sff2Unpacked UnpackSff2(Sff2Packing packing, std::span<const std::byte> packed,
                        const ColorTable& colors, std::span<std::uint32_t> pixels,
                        std::size_t wanted) {
    wanted = std::min(wanted, pixels.size());
    pixels = pixels.first(wanted + std::min(kUnpackSlack, pixels.size() - wanted));
    switch (packing) {
        case Sff2Packing::Rle8:
            return {
                UnpackRuns(RunMark::Rle8, BestUnpackPath(), packed, colors, pixels, wanted).written,
                false};
        case Sff2Packing::Rle5: return unpack::UnpackRle5(packed, colors, pixels, wanted);
        case Sff2Packing::Lz5: return unpack::UnpackLz5(packed, colors, pixels, wanted);
    }
    return {};
}

}  // namespace scenara
