// SPDX-License-Identifier: MIT
//
// The pictures of Glass Lagoon, each family drawn by a file of its own.
//
// Pictures with alpha need no colour for nothing; in the indexed ones it is index 0. A function
// that gives several pictures gives the moments of one animation, unless its comment says more.
#pragma once

#include "NewArchiveMaker.h"

namespace scenara::samples::glasslagoon {

AlphaPicture DrawWater();            // covers all of its rectangle
AlphaPicture DrawShafts(int which);  // 0 or 1
AlphaPicture DrawMist();             // tiles sideways

// Three pictures with one palette: the far reef, a stone and a jar.
Pictures DrawReefThings();

AlphaPicture DrawPavilion();
AlphaPicture DrawLeftReef();
AlphaPicture DrawRightReef();

AlphaPicture DrawSand();
// Light on the sand, as levels of LightPalette(); as large as the sand.
IndexedPicture DrawSandLight(int which);  // 0 or 1
IndexedPicture DrawGlint();               // as levels of LightPalette()
samplemaker::Palette LightPalette();      // 32 colours, from nothing to the brightest

AlphaPictures DrawJelly(double size);  // 1 is 150 x 250 pixels

// Fish of up to 32 colours, those of FishPalette().
enum class FishColours { Silver, Gold, Coral, Far };
samplemaker::Palette FishPalette(FishColours colours);
Pictures DrawShoal();
Pictures DrawBannerFish();

AlphaPictures DrawMiddleKelp();
AlphaPictures DrawFrontKelp();
AlphaPicture DrawFrontCoral();  // out of focus

AlphaPicture DrawGlassFloat();
AlphaPicture DrawShadow();

AlphaPicture DrawBubbles();
AlphaPicture DrawFarPlankton();  // these tile both ways
AlphaPicture DrawNearPlankton();

}  // namespace scenara::samples::glasslagoon
