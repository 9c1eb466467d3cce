// SPDX-License-Identifier: MIT
#include "NewArchiveMaker.h"
#include "glasslagoon/GlassLagoon.h"
#include "glasslagoon/Pictures.h"

namespace scenara::samples {
namespace {

using namespace glasslagoon;

constexpr std::size_t kShortPalette = 32;  // LZ5 and RLE5 have no more colours
constexpr int kFishPictures = 4;
constexpr int kFishFrames = 6;

// Frames 0 to 3 have pictures of their own. Frames 4 and 5 are 2 and 1 again, on the way back: with
// an axis that is lower by a pixel, so they are shown higher by one.
void AddFish(NewArchiveMaker& archive, const Place& first, const Pictures& pictures,
             std::uint16_t palette) {
    archive.AddAll(first, pictures, Sff2Coding::Lz5, palette);
    for (int frame = kFishPictures; frame < kFishFrames; ++frame) {
        archive.AddLinked({first.group, frame, first.axisX, first.axisY + 1},
                          {first.group, kFishFrames - frame}, palette);
    }
}

// The same frames as another group, in other colours.
void AddFishInColours(NewArchiveMaker& archive, const Place& first, int group,
                      FishColours colours) {
    const std::uint16_t palette = archive.AddPalette(FishPalette(colours), kShortPalette);
    for (int frame = 0; frame < kFishFrames; ++frame) {
        const int higher = frame < kFishPictures ? 0 : 1;
        archive.AddLinked({group, frame, first.axisX, first.axisY + higher}, {first.group, frame},
                          palette);
    }
}

void AddAllFish(NewArchiveMaker& archive) {
    const Place shoal{10, 0, 98, 49};
    const Place banner{20, 0, 32, 42};
    const std::uint16_t silver =
        archive.AddPalette(FishPalette(FishColours::Silver), kShortPalette);
    AddFish(archive, shoal, DrawShoal(), silver);
    AddFish(archive, banner, DrawBannerFish(), silver);
    AddFishInColours(archive, shoal, 11, FishColours::Coral);
    AddFishInColours(archive, shoal, 12, FishColours::Far);
    AddFishInColours(archive, banner, 21, FishColours::Gold);
    AddFishInColours(archive, banner, 22, FishColours::Coral);
}

}  // namespace

std::vector<std::byte> GlassLagoonArchive() {
    NewArchiveMaker archive;
    archive.Add({0, 0, 332, 24}, DrawWater(), Sff2Coding::Png24);
    archive.Add({0, 1, 410, 110}, DrawShafts(0), Sff2Coding::Png32);
    archive.Add({0, 2, 410, 110}, DrawShafts(1), Sff2Coding::Png32);

    const Pictures things = DrawReefThings();
    const std::uint16_t reef = archive.AddPalette(things[0].palette, 256);
    archive.Add({1, 0, 380, 190}, things[0], Sff2Coding::Rle8, reef);
    archive.Add({1, 1, 32, 38}, things[1], Sff2Coding::Raw, reef);
    archive.Add({1, 2, 40, 50}, things[2], Sff2Coding::Png8, reef);

    archive.Add({2, 0, 0, 0}, DrawMist(), Sff2Coding::Png32);
    archive.Add({2, 1, 28, 190}, DrawBubbles(), Sff2Coding::Png32);
    archive.Add({2, 2, 0, 0}, DrawFarPlankton(), Sff2Coding::Png32);
    archive.Add({2, 3, 0, 0}, DrawNearPlankton(), Sff2Coding::Png32);

    archive.Add({3, 0, 160, 286}, DrawPavilion(), Sff2Coding::Png32);
    archive.Add({3, 1, 0, 236}, DrawLeftReef(), Sff2Coding::Png32);
    archive.Add({3, 2, 380, 236}, DrawRightReef(), Sff2Coding::Png32);

    archive.Add({4, 0, 632, 0}, DrawSand(), Sff2Coding::Png32);
    const std::uint16_t light = archive.AddPalette(LightPalette(), kShortPalette);
    archive.Add({4, 1, 632, 0}, DrawSandLight(0), Sff2Coding::Rle5, light);
    archive.Add({4, 2, 632, 0}, DrawSandLight(1), Sff2Coding::Rle5, light);
    archive.Add({4, 3, 30, 30}, DrawGlint(), Sff2Coding::Rle5, light);
    archive.Add({4, 4, 75, 17}, DrawShadow(), Sff2Coding::Png32);
    archive.Add({5, 0, 46, 204}, DrawGlassFloat(), Sff2Coding::Png32);

    AddAllFish(archive);
    archive.AddAll({30, 0, 75, 86}, DrawJelly(1), Sff2Coding::Png32);
    archive.AddAll({31, 0, 39, 45}, DrawJelly(0.52), Sff2Coding::Png32);

    archive.AddAll({40, 0, 75, 262}, DrawMiddleKelp(), Sff2Coding::Png32);
    archive.AddAll({41, 0, 80, 470}, DrawFrontKelp(), Sff2Coding::Png32);
    archive.Add({42, 0, 150, 150}, DrawFrontCoral(), Sff2Coding::Png32);
    return archive.Bytes();
}

}  // namespace scenara::samples
