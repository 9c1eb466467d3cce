// SPDX-License-Identifier: MIT
//
// The pictures of 1001 Panes, each group drawn by a file of its own.
//
// Index 0 is nothing in all of them but the wall and the floor, which fill every pixel. A function
// that gives several pictures gives the moments of one animation.
#pragma once

#include "ArchiveMaker.h"

namespace scenara::samples {

IndexedPicture DrawSideBay();
IndexedPicture DrawMiddleBay();
IndexedPicture DrawRoseQuarter();  // the upper right one
IndexedPicture DrawClouds();
IndexedPicture DrawArches();
IndexedPicture DrawRays();  // the right half
IndexedPicture DrawDust();
IndexedPicture DrawIronRailing();
IndexedPicture DrawCandleStand();
Pictures DrawFlames();
IndexedPicture DrawHalo();
IndexedPicture DrawFloor();
IndexedPicture DrawFloorLight();
IndexedPicture DrawFloorShadows();
IndexedPicture DrawSideBayImage();
IndexedPicture DrawMiddleBayImage();
IndexedPicture DrawChandelier();
IndexedPicture DrawChandelierLight();
IndexedPicture DrawLamp();
IndexedPicture DrawLampGlass();
Pictures DrawBat();
IndexedPicture DrawCandelabrum();

}  // namespace scenara::samples
