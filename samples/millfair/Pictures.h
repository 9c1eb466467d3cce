// SPDX-License-Identifier: MIT
//
// The pictures of Mill Fair, each family drawn by a file of its own.
//
// All have alpha, so soft edges stay soft however a picture is scaled and turned. A function that
// gives several pictures gives the moments of one animation.
#pragma once

#include "NewArchiveMaker.h"

namespace scenara::samples::millfair {

AlphaPicture DrawSky();  // covers all of its rectangle
AlphaPicture DrawMoon();
AlphaPicture DrawClouds();  // tiles sideways

AlphaPicture DrawHills();  // tiles sideways
AlphaPicture DrawVillage();
AlphaPicture DrawBank();
AlphaPicture DrawMill();
AlphaPicture DrawWings();
AlphaPicture DrawWheel();
AlphaPicture DrawWheelStand();

AlphaPictures DrawWater();   // these tile sideways, and cover all of their rectangle
AlphaPicture DrawGlitter();  // of the sky's light on it; to be added
AlphaPicture DrawBoat();

AlphaPicture DrawQuay();  // tiles sideways
AlphaPicture DrawBollard();
AlphaPicture DrawPool();  // of light; to be added
AlphaPicture DrawShadow();

AlphaPicture DrawTheatre();
AlphaPicture DrawTheatreFrame();
AlphaPicture DrawTheatreSide();
AlphaPicture DrawKnight();
AlphaPicture DrawDragon();

AlphaPicture DrawStallInside();
AlphaPicture DrawStallFront();
AlphaPicture DrawCounterTop();
AlphaPicture DrawCounterSide();
AlphaPicture DrawBarrels();
AlphaPicture DrawSign();

AlphaPicture DrawPosts();             // tiles sideways
AlphaPicture DrawPostsGlow();         // as large; to be added
AlphaPicture DrawLantern(int which);  // 0 or 1
AlphaPicture DrawFlags();             // tiles sideways

AlphaPicture DrawBrazier();
AlphaPicture DrawFlame();  // these are to be added
AlphaPicture DrawSpark();
AlphaPicture DrawRocket();
AlphaPicture DrawBurst(int which);  // 0 to 2

AlphaPicture DrawBalloon();
AlphaPicture DrawFlowers();  // out of focus

}  // namespace scenara::samples::millfair
