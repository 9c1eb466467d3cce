// SPDX-License-Identifier: MIT
#include "ArchiveMaker.h"
#include "cloudharbour/CloudHarbour.h"
#include "cloudharbour/Pictures.h"

namespace scenara::samples {

std::vector<std::byte> CloudHarbourArchive() {
    using namespace cloudharbour;
    ArchiveMaker archive;
    archive.Add({0, 0, 640, 16}, DrawSky());
    archive.Add({0, 1, 44, 44}, DrawSun());
    archive.Add({0, 2, 450, 260}, DrawSunGlow());
    archive.Add({1, 0, 704, 190}, DrawPeaks());
    archive.Add({2, 0, 0, 0}, DrawCloudSea());
    archive.Add({2, 1, 0, 0}, DrawFarBank());
    archive.Add({2, 2, 0, 0}, DrawMiddleBank());
    archive.Add({2, 3, 0, 0}, DrawNearBank());
    archive.Add({2, 4, 0, 0}, DrawWisps());
    archive.Add({3, 0, 236, 138}, DrawLightIsland());
    archive.Add({3, 1, 164, 150}, DrawMillIsland());
    archive.Add({3, 2, 130, 50}, DrawFarIslands());
    archive.AddAll({4, 0, 36, 0}, DrawWaterfall());
    archive.AddAll({5, 0, 58, 58}, DrawMillSails());
    archive.Add({6, 0, 84, 84}, DrawGlimmer());
    archive.Add({10, 0, 24, 118}, DrawMooredShip());
    archive.Add({10, 1, 8, 46}, DrawPassingShip());
    archive.Add({10, 2, 56, 22}, DrawFarShip());
    archive.AddAll({11, 0, 14, 62}, DrawPropeller());
    archive.Add({12, 0, 90, 38}, DrawMooringMast());
    archive.AddAll({13, 0, 2, 22}, DrawPennant());
    archive.AddAll({14, 0, 28, 20}, DrawGull());
    archive.Add({20, 0, 1084, 0}, DrawFloor());
    archive.Add({21, 0, 80, 110}, DrawRailing());
    archive.Add({22, 0, 75, 368}, DrawLampPost());
    archive.Add({23, 0, 140, 174}, DrawCargo());
    archive.Add({24, 0, 50, 74}, DrawBollard());
    archive.Add({30, 0, 84, 590}, DrawFrontPost());
    return archive.Bytes();
}

}  // namespace scenara::samples
