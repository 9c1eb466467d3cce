// SPDX-License-Identifier: MIT
#include "NewArchiveMaker.h"
#include "millfair/MillFair.h"
#include "millfair/Pictures.h"

namespace scenara::samples {

std::vector<std::byte> MillFairArchive() {
    using namespace millfair;
    NewArchiveMaker archive;
    archive.Add({0, 0, 328, 20}, DrawSky(), Sff2Coding::Png24);
    archive.Add({0, 1, 60, 60}, DrawMoon(), Sff2Coding::Png32);
    archive.Add({0, 2, 0, 60}, DrawClouds(), Sff2Coding::Png32);

    archive.Add({1, 0, 384, 90}, DrawHills(), Sff2Coding::Png32);
    archive.Add({1, 1, 450, 92}, DrawVillage(), Sff2Coding::Png32);
    archive.Add({1, 2, 480, 44}, DrawBank(), Sff2Coding::Png32);
    archive.Add({1, 3, 65, 166}, DrawMill(), Sff2Coding::Png32);
    archive.Add({1, 4, 90, 90}, DrawWings(), Sff2Coding::Png32);
    archive.Add({1, 5, 86, 86}, DrawWheel(), Sff2Coding::Png32);
    archive.Add({1, 6, 50, 10}, DrawWheelStand(), Sff2Coding::Png32);

    archive.AddAll({2, 0, 256, 0}, DrawWater(), Sff2Coding::Png24);
    archive.Add({2, 10, 210, 0}, DrawGlitter(), Sff2Coding::Png32);
    archive.Add({2, 11, 75, 72}, DrawBoat(), Sff2Coding::Png32);

    archive.Add({3, 0, 224, 0}, DrawQuay(), Sff2Coding::Png24);
    archive.Add({3, 1, 17, 29}, DrawBollard(), Sff2Coding::Png32);
    archive.Add({3, 2, 150, 37}, DrawPool(), Sff2Coding::Png32);
    archive.Add({3, 3, 110, 18}, DrawShadow(), Sff2Coding::Png32);

    archive.Add({4, 0, 75, 186}, DrawTheatre(), Sff2Coding::Png32);
    archive.Add({4, 1, 75, 186}, DrawTheatreFrame(), Sff2Coding::Png32);
    archive.Add({4, 2, 0, 154}, DrawTheatreSide(), Sff2Coding::Png32);
    archive.Add({4, 3, 28, 84}, DrawKnight(), Sff2Coding::Png32);
    archive.Add({4, 4, 50, 84}, DrawDragon(), Sff2Coding::Png32);

    archive.Add({5, 0, 100, 176}, DrawStallInside(), Sff2Coding::Png32);
    archive.Add({5, 1, 100, 176}, DrawStallFront(), Sff2Coding::Png32);
    archive.Add({5, 2, 84, 24}, DrawCounterTop(), Sff2Coding::Png32);
    archive.Add({5, 3, 60, 46}, DrawCounterSide(), Sff2Coding::Png32);
    archive.Add({5, 4, 30, 1}, DrawSign(), Sff2Coding::Png32);
    archive.Add({5, 5, 62, 100}, DrawBarrels(), Sff2Coding::Png32);

    archive.Add({6, 0, 120, 182}, DrawPosts(), Sff2Coding::Png32);
    archive.Add({6, 1, 120, 182}, DrawPostsGlow(), Sff2Coding::Png32);
    archive.Add({6, 2, 30, 1}, DrawLantern(0), Sff2Coding::Png32);
    archive.Add({6, 3, 30, 1}, DrawLantern(1), Sff2Coding::Png32);
    archive.Add({6, 4, 0, 12}, DrawFlags(), Sff2Coding::Png32);

    archive.Add({7, 0, 32, 69}, DrawBrazier(), Sff2Coding::Png32);
    archive.Add({7, 1, 22, 56}, DrawFlame(), Sff2Coding::Png32);
    archive.Add({7, 2, 8, 8}, DrawSpark(), Sff2Coding::Png32);
    archive.Add({7, 3, 7, 7}, DrawRocket(), Sff2Coding::Png32);
    archive.Add({7, 4, 100, 100}, DrawBurst(0), Sff2Coding::Png32);
    archive.Add({7, 5, 100, 100}, DrawBurst(1), Sff2Coding::Png32);
    archive.Add({7, 6, 100, 100}, DrawBurst(2), Sff2Coding::Png32);

    archive.Add({8, 0, 40, 60}, DrawBalloon(), Sff2Coding::Png32);
    archive.Add({9, 0, 120, 150}, DrawFlowers(), Sff2Coding::Png32);
    return archive.Bytes();
}

}  // namespace scenara::samples
