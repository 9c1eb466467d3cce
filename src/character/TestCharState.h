// SPDX-License-Identifier: MIT
//
// TestCharState: all that the main window knows of the test character: which one is chosen, whether
// it is on, and what its walking keeps from one frame to the next.
#pragma once

#include <string>
#include <vector>

#include "base/Integers.h"
#include "character/TestCharacter.h"

namespace scenara {

struct TestCharState {
    // Settings of the user's.
    std::string TestChar;  // the definition's path; empty: none is chosen
    std::string CharName;  // its display name
    bool UseChar = false;  // the menu's check mark

    // None is chosen. The name goes with the path: settings must not put one to another.
    void Forget() {
        TestChar.clear();
        CharName.clear();
    }

    // Of the stage that is open.
    bool CharLoaded = false;
    std::vector<TestCharacter> Characters;  // one, or none
    Integer CharCount = 1;                  // how many are moved each frame
    Single CharZoom = 1;
    bool StepsOverridden = false;  // the camera steps by the character; the user's are saved

    // Of the last frame.
    bool Turning = false;  // the pictures of turning play; until they have, keys count for nothing
    bool RightHeld = false;
    bool LeftHeld = false;
    Integer LastAction = kStanding;
    Integer LastFacing = kFacingRight;
    bool FrameFlipped = false;
    Single DrawnCameraY = 0;  // the camera that DrawY counts with
};

}  // namespace scenara
