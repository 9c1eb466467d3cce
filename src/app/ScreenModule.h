// SPDX-License-Identifier: MIT
//
// ScreenModule: the modes of the screen, each described in words, which one is in force, and the
// switch to another.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/Integers.h"
#include "platform/DisplayModes.h"
#include "platform/View.h"

namespace scenara {

// Stands for no mode of the table.
inline constexpr Integer kNoMode = -1;

// "640 x 480, 256 colors, 75 Hz". Everything above 8 and up to 24 bits is "24bit color", 15 and 16
// included; a frequency below 2 is "(Hardware default)".
[[nodiscard]] std::string DescribeMode(const DisplaySettings& mode);

// What the mode of the full screen is described as.
[[nodiscard]] std::string FullScreenMode(const CanvasSize& size);

class ScreenModule {
public:
    // The machine's modes outlive this.
    explicit ScreenModule(DisplayModes& display) : display_(display) {}

    // Fills the table anew.
    void Enumerate();

    [[nodiscard]] const std::vector<DisplaySettings>& Modes() const { return modes_; }

    // The first mode whose description holds `text`.
    [[nodiscard]] Integer Find(std::string_view text) const;

    // The smallest of the display's own modes that is at least as large both ways; of several the
    // one with most colours, and of these the one whose frequency is nearest to 60 Hz.
    [[nodiscard]] Integer FindRoomFor(const CanvasSize& size) const;

    // The first mode of the table that equals the one in force, in all four values.
    [[nodiscard]] Integer CurrentMode() const;

    // Whether it worked. A mode that is not in the table cannot be switched to.
    bool SwitchTo(Integer mode);

private:
    DisplayModes& display_;
    std::vector<DisplaySettings> modes_;
};

}  // namespace scenara
