// SPDX-License-Identifier: MIT
#include "app/ScreenModule.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <tuple>

#include "base/NumberText.h"
#include "base/Text.h"

namespace scenara {
namespace {

// A mode is known by an Integer.
constexpr Long kMaxModes = std::numeric_limits<Integer>::max();

std::string_view Colours(Long bitsPerPixel) {
    switch (bitsPerPixel) {
        case 4: return "16 colors";
        case 8: return "256 colors";
        default: return bitsPerPixel <= 24 ? "24bit color" : "32bit color";
    }
}

template <typename Table, typename Predicate>
Integer IndexOfFirst(const Table& table, Predicate wanted) {
    const auto found = std::find_if(table.begin(), table.end(), wanted);
    return found == table.end() ? kNoMode : static_cast<Integer>(found - table.begin());
}

}  // namespace

std::string DescribeMode(const DisplaySettings& mode) {
    std::string text = NumberText(mode.width) + " x " + NumberText(mode.height) + ", ";
    text.append(Colours(mode.bitsPerPixel));
    return text + (mode.frequency < 2 ? ", (Hardware default)"
                                      : ", " + NumberText(mode.frequency) + " Hz");
}

std::string FullScreenMode(const CanvasSize& size) {
    constexpr Long kColourBits = 24;
    constexpr Long kHertz = 60;
    return DescribeMode({size.width, size.height, kColourBits, kHertz});
}

void ScreenModule::Enumerate() {
    modes_.clear();
    for (Long index = 0; index < kMaxModes; ++index) {
        const std::optional<DisplaySettings> mode = display_.EnumDisplaySettings(index);
        if (!mode) {
            return;
        }
        modes_.push_back(*mode);
    }
}

Integer ScreenModule::Find(std::string_view text) const {
    return IndexOfFirst(
        modes_, [&](const DisplaySettings& mode) { return Contains(DescribeMode(mode), text); });
}

Integer ScreenModule::FindRoomFor(const CanvasSize& size) const {
    constexpr Long kHertz = 60;
    const auto rank = [](const DisplaySettings& mode) {
        return std::tuple(std::int64_t{mode.width} * mode.height, -mode.bitsPerPixel,
                          std::abs(mode.frequency - kHertz));
    };
    auto best = modes_.end();
    for (auto mode = modes_.begin(); mode != modes_.end(); ++mode) {
        const bool hasRoom =
            !mode->emulated && mode->width >= size.width && mode->height >= size.height;
        if (hasRoom && (best == modes_.end() || rank(*mode) < rank(*best))) {
            best = mode;
        }
    }
    return best == modes_.end() ? kNoMode : static_cast<Integer>(best - modes_.begin());
}

Integer ScreenModule::CurrentMode() const {
    const DisplaySettings current = display_.Current();
    return IndexOfFirst(modes_, [&](const DisplaySettings& mode) { return mode == current; });
}

bool ScreenModule::SwitchTo(Integer mode) {
    const auto index = static_cast<std::size_t>(mode);
    return mode >= 0 && index < modes_.size() && display_.ChangeDisplaySettings(modes_[index]);
}

}  // namespace scenara
