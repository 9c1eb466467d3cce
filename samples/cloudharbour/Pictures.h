// SPDX-License-Identifier: MIT
//
// The pictures of Cloud Harbour, each family drawn by a file of its own.
//
// Index 0 is nothing in all of them but the sky, which fills every pixel. A function that gives
// several pictures gives the moments of one animation.
#pragma once

#include "ArchiveMaker.h"

namespace scenara::samples::cloudharbour {

IndexedPicture DrawSky();
IndexedPicture DrawSunGlow();
IndexedPicture DrawSun();

IndexedPicture DrawPeaks();

// Clouds from the horizon to the landing stage. All tile sideways.
IndexedPicture DrawCloudSea();
IndexedPicture DrawFarBank();
IndexedPicture DrawMiddleBank();
IndexedPicture DrawNearBank();
IndexedPicture DrawWisps();  // they are added to the picture

IndexedPicture DrawLightIsland();  // with the lighthouse and the waterfall's spring
IndexedPicture DrawMillIsland();
IndexedPicture DrawFarIslands();
Pictures DrawWaterfall();
Pictures DrawMillSails();
IndexedPicture DrawGlimmer();  // the glow around a lamp, to be added

IndexedPicture DrawMooredShip();
IndexedPicture DrawPassingShip();
IndexedPicture DrawFarShip();
IndexedPicture DrawMooringMast();
Pictures DrawPropeller();
Pictures DrawPennant();
Pictures DrawGull();

IndexedPicture DrawFloor();
IndexedPicture DrawRailing();
IndexedPicture DrawCargo();
IndexedPicture DrawLampPost();
IndexedPicture DrawBollard();
IndexedPicture DrawFrontPost();

}  // namespace scenara::samples::cloudharbour
