// SPDX-License-Identifier: MIT
//
// What the pixels of the program's window are to be while it shows the stage "bar" as that starts,
// worked out apart from the program.
#pragma once

#include <string>

#include "desktop/Screenshot.h"

namespace scenara::test {

struct WindowParts {
    Place place;           // on the screen, without a frame
    double scale = 1;      // the screen's pixels to one of the toolkit's
    bool hasMenus = true;  // else it is the full screen: the picture's box alone
    bool hasList = true;
};

// What is wrong with them, in a line; empty: nothing. The menus, the list and the status line show
// neither the background nor the picture, but for the most part a ground of their own, up to the
// list's right and lower edges. What they leave is the picture's box: the picture stands in its
// middle at the largest size that fits, or at the largest whole multiple where that is nearly as
// large, and all around it is black. A toolkit that counts in larger pixels than the screen takes
// the window for up to half of one larger or smaller than it is; what it does not count, at the
// right and lower edges, may be black.
[[nodiscard]] std::string WrongPixels(const Screenshot& shot, const WindowParts& window);

}  // namespace scenara::test
