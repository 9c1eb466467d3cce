// SPDX-License-Identifier: MIT
//
// The two reefs on either side of the glasshouse, grown over with corals. Heaps are painted twice
// as large and then halved, which makes their edges smooth.
#include <array>
#include <cmath>

#include "glasslagoon/Corals.h"
#include "glasslagoon/Pictures.h"
#include "glasslagoon/Scene.h"
#include "samplemaker/Noise.h"

namespace scenara::samples::glasslagoon {
namespace {

constexpr int kReefWidth = 380;
constexpr int kReefHeight = 290;
constexpr double kReefGround = 236;  // what is below it stands in the sand

constexpr Light kRockGrey{0.42, 0.50, 0.54};
constexpr Light kRockRose{0.62, 0.42, 0.50};
constexpr Light kOrange{1.0, 0.56, 0.30};
constexpr Light kPink{0.98, 0.50, 0.62};
constexpr Light kViolet{0.66, 0.46, 0.86};
constexpr Light kOchre{0.90, 0.74, 0.40};
constexpr Light kLeaf{0.36, 0.72, 0.42};
constexpr Light kTeal{0.30, 0.74, 0.70};

struct Lump {
    double x;
    double top;
    double radius;
};

// Lumps of rock that go down to the picture's lower edge.
PuffField RockField(std::span<const Lump> lumps) {
    PuffField field(2 * kReefWidth, 2 * kReefHeight, false);
    samplemaker::Random random(2143);
    for (const Lump& lump : lumps) {
        const Puff form{2 * lump.x, 2 * (lump.top + lump.radius), 2 * lump.radius, 0};
        field.Add(form, form, 0);
        for (double down = lump.top + lump.radius; down < kReefHeight + 40; down += 18) {
            const double wide = lump.radius * 1.04;
            field.Add({2 * lump.x, 2 * down, 2 * wide, -0.3 * lump.radius},
                      {2 * lump.x, 2 * down, 2 * wide, 0}, 0);
            for (int i = 0; i < 5; ++i) {
                const double x = lump.x + wide * random.Between(-0.8, 0.8);
                const double radius = lump.radius * random.Between(0.26, 0.44);
                field.Add(
                    {2 * x, 2 * (down + random.Between(-6, 6)), 2 * radius, lump.radius * 0.8},
                    {2 * lump.x, 2 * down, 2 * wide, 0}, 0.5);
            }
        }
        for (int i = 0; i < 16; ++i) {
            const double turn = random.Between(-1.5, 1.5);
            const double out = lump.radius * random.Between(0.3, 0.92);
            field.Add({2 * (lump.x + out * std::sin(turn)),
                       2 * (lump.top + lump.radius - out * std::cos(turn)),
                       2 * lump.radius * random.Between(0.16, 0.34), lump.radius * 1.1},
                      form, 0.5);
        }
    }
    return field;
}

PuffField Ball(const Lump& lump) {
    PuffField field(2 * kReefWidth, 2 * kReefHeight, false);
    const Puff puff{2 * lump.x, 2 * (lump.top + lump.radius), 2 * lump.radius, 0};
    field.Add(puff, puff, 0);
    return field;
}

AlphaPainting Rocks(std::span<const Lump> lumps, std::span<const Lump> brains) {
    AlphaPainting large(2 * kReefWidth, 2 * kReefHeight);
    PaintHeap(large, RockField(lumps), {kRockGrey, kRockRose, 0.55, 0});
    const std::array colours = {HeapColours{kOchre, kOchre * 0.9, 0.2, 1},
                                HeapColours{kViolet, kPink, 0.2, 1},
                                HeapColours{kTeal, kLeaf, 0.2, 1}};
    for (std::size_t i = 0; i < brains.size(); ++i) {
        PaintHeap(large, Ball(brains[i]), colours.at(i % colours.size()));
    }
    return large.Halved();
}

// The water between, and the shade towards the ground.
AlphaPicture Finished(AlphaPainting& painting) {
    painting.TintAll([](int, int y) {
        return Film{{0.05, 0.28, 0.38}, 0.46 * Rise(kReefGround - 70, kReefGround + 20, y)};
    });
    painting.TintAll([](int, int y) {
        return Film{WaterAt(y + 120.0), 0.20 + 0.10 * Rise(110, 0, y)};
    });
    return painting.ToPicture();
}

}  // namespace

AlphaPicture DrawLeftReef() {
    constexpr std::array kLumps = {Lump{60, 62, 88}, Lump{150, 120, 70}, Lump{236, 172, 52},
                                   Lump{306, 204, 38}, Lump{0, 100, 80}};
    constexpr std::array kBrains = {Lump{206, 148, 31}, Lump{292, 190, 25}, Lump{112, 96, 26}};
    AlphaPainting painting = Rocks(kLumps, kBrains);
    PaintFan(painting, {40, 84}, 82, kViolet, 2153);
    PaintBranches(painting, {84, 76}, 58, kPink, 2161);
    PaintTubes(painting, {150, 132}, 54, kOrange, 2179);
    PaintTable(painting, {26, 138}, 96, kTeal);
    PaintAnemone(painting, {250, 186}, 22, kPink, 2203);
    PaintBranches(painting, {178, 200}, 40, kOchre, 2207);
    PaintTubes(painting, {92, 190}, 42, kViolet, 2213);
    PaintTuft(painting, {130, 216}, 34, kLeaf, 2221);
    PaintBranches(painting, {46, 214}, 40, kOrange, 2237);
    PaintTuft(painting, {330, 222}, 26, kLeaf, 2239);
    PaintAnemone(painting, {226, 226}, 20, kOrange, 2243);
    PaintTuft(painting, {278, 228}, 22, kTeal, 2251);
    return Finished(painting);
}

AlphaPicture DrawRightReef() {
    constexpr std::array kLumps = {Lump{330, 40, 92}, Lump{262, 126, 64}, Lump{176, 182, 48},
                                   Lump{96, 206, 36}, Lump{378, 110, 70}};
    constexpr std::array kBrains = {Lump{150, 178, 27}, Lump{238, 122, 33}, Lump{80, 208, 20}};
    AlphaPainting painting = Rocks(kLumps, kBrains);
    PaintFan(painting, {306, 62}, 60, kPink, 2267);
    PaintTubes(painting, {346, 58}, 46, kTeal, 2269);
    PaintTable(painting, {292, 116}, 84, kOchre);
    PaintBranches(painting, {214, 148}, 44, kOrange, 2273);
    PaintAnemone(painting, {270, 132}, 22, kViolet, 2281);
    PaintBranches(painting, {340, 168}, 58, kPink, 2287);
    PaintTubes(painting, {246, 210}, 44, kOchre, 2293);
    PaintTuft(painting, {192, 218}, 32, kLeaf, 2297);
    PaintFan(painting, {120, 220}, 52, kOrange, 2309);
    PaintAnemone(painting, {300, 224}, 24, kPink, 2311);
    PaintTuft(painting, {54, 228}, 22, kTeal, 2333);
    PaintTuft(painting, {350, 222}, 36, kLeaf, 2339);
    return Finished(painting);
}

}  // namespace scenara::samples::glasslagoon
