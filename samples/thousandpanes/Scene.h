// SPDX-License-Identifier: MIT
//
// The lay of the hall that all pictures of 1001 Panes share.
//
// The stage says hires = 1, so everything is drawn twice as fine as the view shows it: lengths are
// pixels of 640 x 480. Columns count from the middle of the view, rows from its upper edge, with
// the camera on the ground.
#pragma once

namespace scenara::samples {

constexpr int kBay = 256;       // the wall repeats after one bay, and so do the arches before it
constexpr int kEye = 200;       // the row that the floor's lines run to
constexpr int kFloorTop = 344;  // where the floor ends before the railing
constexpr int kFeet = 416;      // where the fighters stand

constexpr int kRoseRow = 132;  // the middle of the great window
constexpr int kRoseRadius = 104;

}  // namespace scenara::samples
