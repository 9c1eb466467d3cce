// SPDX-License-Identifier: MIT
//
// The lay of the scene that all pictures of Lantern Pier share.
//
// Rows are view rows (0 to 239) with the camera on the ground, columns are view columns (0 to 319)
// with the camera in the middle. Pictures drawn in view columns put their axis on column 160, so
// that `start = 0, …` in the stage file lays them where they were drawn.
#pragma once

namespace scenara::samples {

constexpr int kViewCentre = 160;
constexpr int kHorizon = 132;  // where the water meets the sky
constexpr int kSunX = 208;     // the sun stands on the horizon; all light comes from there
constexpr int kSunY = 117;
constexpr int kPierTop = 188;  // the far edge of the boards

}  // namespace scenara::samples
