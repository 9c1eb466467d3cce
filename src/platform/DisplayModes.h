// SPDX-License-Identifier: MIT
//
// DisplayModes: the modes of the screen on which the main window stands, which one is in force, and
// the switch to another.
#pragma once

#include <optional>

#include "base/Integers.h"
#include "base/NotCopied.h"

namespace scenara {

// Pixels of the whole display area, which may reach over several screens.
struct ScreenRectangle {
    Long left = 0;
    Long top = 0;
    Long width = 0;
    Long height = 0;
};

struct DisplaySettings {
    Long width = 0;  // pixels
    Long height = 0;
    Long bitsPerPixel = 0;
    Long frequency = 0;  // hertz; below 2: the hardware's default
    // Of the machine's own making: the display has no such mode, and does not change.
    bool emulated = false;

    friend bool operator==(const DisplaySettings&, const DisplaySettings&) = default;
};

class DisplayModes : NotCopied {
public:
    virtual ~DisplayModes() = default;

    // Mode number `index`, counted from 0; nothing behind the last one. 0 has the modes read anew.
    [[nodiscard]] virtual std::optional<DisplaySettings> EnumDisplaySettings(Long index) = 0;

    // The mode in force.
    [[nodiscard]] virtual DisplaySettings Current() = 0;

    // Switches; whether it worked. The mode that was in force at first comes back when the program
    // ends.
    virtual bool ChangeDisplaySettings(const DisplaySettings& mode) = 0;
};

}  // namespace scenara
