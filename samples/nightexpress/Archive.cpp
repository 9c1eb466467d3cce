// SPDX-License-Identifier: MIT
#include "ArchiveMaker.h"
#include "nightexpress/NightExpress.h"
#include "nightexpress/Pictures.h"

namespace scenara::samples {

std::vector<std::byte> NightExpressArchive() {
    ArchiveMaker archive;
    archive.Add({0, 0, 184, 0}, DrawNightSky());
    archive.Add({1, 0, 0, 0}, DrawNightClouds());
    archive.Add({2, 0, 0, 131}, DrawFarCity());
    archive.Add({3, 0, 0, 127}, DrawCity());
    archive.AddAll({4, 0, 12, 40}, DrawNeon());
    archive.Add({5, 0, 0, 61}, DrawHouses());
    archive.Add({6, 0, 0, 0}, DrawTrack());
    archive.Add({7, 0, 60, 185}, DrawMast());
    archive.Add({8, 0, 0, 65}, DrawOtherTrain());
    archive.Add({9, 0, 436, 0}, DrawRoof());
    archive.Add({10, 0, 48, 93}, DrawPantograph());
    archive.AddAll({11, 0, 23, 23}, DrawSparks());
    archive.Add({20, 0, 0, 0}, DrawFarSnow());
    archive.Add({20, 1, 0, 0}, DrawNearSnow());
    archive.Add({21, 0, 22, 0}, DrawFrontPole());
    return archive.Bytes();
}

}  // namespace scenara::samples
