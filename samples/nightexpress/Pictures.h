// SPDX-License-Identifier: MIT
//
// The pictures of Night Express. The moon stands left of the middle: left edges are lit by it.
// Index 0 is nothing in all of them but the sky and the roof, which fill every pixel.
#pragma once

#include "ArchiveMaker.h"

namespace scenara::samples {

IndexedPicture DrawNightSky();
IndexedPicture DrawNightClouds();
IndexedPicture DrawFarCity();
IndexedPicture DrawCity();
Pictures DrawNeon();  // the sign on one of the city's roofs: lit, faint
IndexedPicture DrawHouses();
IndexedPicture DrawTrack();
IndexedPicture DrawMast();
IndexedPicture DrawOtherTrain();
IndexedPicture DrawRoof();
IndexedPicture DrawPantograph();
Pictures DrawSparks();
IndexedPicture DrawFrontPole();
IndexedPicture DrawFarSnow();
IndexedPicture DrawNearSnow();

}  // namespace scenara::samples
