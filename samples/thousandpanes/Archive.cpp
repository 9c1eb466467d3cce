// SPDX-License-Identifier: MIT
#include "ArchiveMaker.h"
#include "thousandpanes/Pictures.h"
#include "thousandpanes/ThousandPanes.h"

namespace scenara::samples {

std::vector<std::byte> ThousandPanesArchive() {
    ArchiveMaker archive;
    archive.Add({1, 0, 128, 0}, DrawSideBay());
    archive.Add({1, 1, 128, 0}, DrawMiddleBay());
    archive.Add({2, 0, 0, 120}, DrawRoseQuarter());
    archive.Add({3, 0, 0, 0}, DrawClouds());
    archive.Add({4, 0, 128, 0}, DrawArches());
    archive.Add({5, 0, 0, 0}, DrawRays());
    archive.Add({6, 0, 0, 0}, DrawDust());
    archive.Add({10, 0, 64, 60}, DrawIronRailing());
    archive.Add({11, 0, 38, 112}, DrawCandleStand());
    archive.AddAll({12, 0, 12, 32}, DrawFlames());
    archive.Add({13, 0, 88, 88}, DrawHalo());
    archive.Add({20, 0, 712, 0}, DrawFloor());
    archive.Add({21, 0, 520, 0}, DrawFloorLight());
    archive.Add({22, 0, 580, 0}, DrawFloorShadows());
    archive.Add({23, 0, 128, 0}, DrawSideBayImage());
    archive.Add({23, 1, 128, 0}, DrawMiddleBayImage());
    archive.Add({30, 0, 96, 0}, DrawChandelier());
    archive.Add({31, 0, 160, 100}, DrawChandelierLight());
    archive.Add({32, 0, 20, 0}, DrawLamp());
    archive.Add({33, 0, 16, 0}, DrawLampGlass());
    archive.AddAll({34, 0, 40, 24}, DrawBat());
    archive.Add({40, 0, 76, 250}, DrawCandelabrum());
    return archive.Bytes();
}

}  // namespace scenara::samples
