// SPDX-License-Identifier: MIT
#include "ArchiveMaker.h"
#include "lanternpier/LanternPier.h"
#include "lanternpier/Pictures.h"

namespace scenara::samples {

// Wide pictures have their axis in the middle of the upper edge, what stands in the water or on the
// boards has it at its foot, and what hangs or flies in its middle.
std::vector<std::byte> LanternPierArchive() {
    ArchiveMaker archive;
    archive.Add({0, 0, 184, 0}, DrawSky());
    archive.Add({1, 0, 0, 0}, DrawHighClouds());
    archive.Add({1, 1, 0, 0}, DrawLowClouds());
    archive.Add({2, 0, 320, 0}, DrawMountains());
    archive.Add({3, 0, 384, 64}, DrawHills());
    archive.Add({3, 1, 18, 59}, DrawPagoda());
    archive.Add({5, 0, 256, 0}, DrawWater());
    archive.AddAll({6, 0, 60, 0}, DrawGlitter());
    archive.AddAll({7, 0, 23, 15}, DrawBirds());
    archive.AddLinked({7, 3, 23, 15}, 2);  // wings on their way up look as on their way down
    archive.Add({10, 0, 60, 111}, DrawTorii());
    archive.AddAll({11, 0, 60, 0}, DrawToriiMirror(), PaletteFrom::OfTheOneBefore);
    archive.Add({20, 0, 42, 44}, DrawBoat());
    archive.AddAll({21, 0, 12, 6}, DrawBoatLight(), PaletteFrom::OfTheOneBefore);
    archive.Add({30, 0, 452, 0}, DrawBoards());
    archive.Add({31, 0, 48, 27}, DrawRailing());
    archive.Add({32, 0, 11, 95}, DrawLanternPost());
    archive.AddAll({33, 0, 30, 30}, DrawLanternLight(), PaletteFrom::OfTheOneBefore);
    archive.Add({40, 0, 34, 0}, DrawMapleTree());
    archive.Add({40, 1, 196, 0}, DrawMapleBranch(), PaletteFrom::OfTheOneBefore);
    archive.AddAll({41, 0, 6, 6}, DrawFallingLeaf(), PaletteFrom::OfTheOneBefore);
    return archive.Bytes();
}

}  // namespace scenara::samples
