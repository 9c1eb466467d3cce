// SPDX-License-Identifier: MIT
#include "samplemaker/Lz5Matches.h"

#include <algorithm>
#include <optional>

namespace scenara::samplemaker {
namespace {

// What lies farther along the chain is seldom longer, and dithered pictures have long chains.
constexpr std::size_t kMostTries = 128;

}  // namespace

Lz5Matches::Lz5Matches(std::span<const std::uint8_t> pixels)
    : pixels_(pixels), stepBack_(pixels.size(), 0) {
    std::array<std::optional<std::size_t>, 32 * 32> last;
    for (std::size_t at = 0; at + 1 < pixels.size(); ++at) {
        std::optional<std::size_t>& same = last.at(pixels[at] * 32U + pixels[at + 1]);
        if (same) {
            stepBack_[at] = static_cast<std::uint32_t>(at - *same);
        }
        same = at;
    }
}

Lz5Match Lz5Matches::Longest(std::size_t at, std::size_t mostBack, std::size_t mostCount,
                             std::size_t skipped) const {
    const std::size_t most = std::min(mostCount, pixels_.size() - at);
    Lz5Match longest;
    std::size_t from = at;
    for (std::size_t tries = 0; tries < kMostTries + skipped; ++tries) {
        const std::size_t step = stepBack_[from];
        if (step == 0 || at - from + step > mostBack || longest.count == most) {
            break;
        }
        from -= step;
        // One that is longer has the pixel behind the longest one so far.
        if (tries < skipped || pixels_[from + longest.count] != pixels_[at + longest.count]) {
            continue;
        }
        // The source may run into the target: both are read as they will be.
        std::size_t count = 0;
        while (count < most && pixels_[from + count] == pixels_[at + count]) {
            ++count;
        }
        if (count > longest.count) {
            longest = {at - from, count};
        }
    }
    return longest;
}

}  // namespace scenara::samplemaker
