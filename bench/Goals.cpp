// SPDX-License-Identifier: MIT
#include "Goals.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <vector>

#include "render/Scenes.h"
#include "sprites/LoadArchive_bench.h"
#include "support/ArchiveFiles.h"
#include "support/PeakMemory.h"

namespace scenara::bench {
namespace {

// How many times as fast as the peer a row is; at least `must`.
struct SpeedGoal {
    const char* what;
    const char* peer;
    const char* ours;
    double must;
    double aim;
};

constexpr std::array<SpeedGoal, 9> kSpeedGoals = {{
    {"decode against SDL2_image, plain build", "Decode/Sdl2Image", "Decode/TexturesSse2", 5.0, 7.5},
    {"decode against SDL2_image, AVX2", "Decode/Sdl2Image", "Decode/TexturesAvx2", 7.0, 9.0},
    {"decode against libavcodec + palette, plain", "Decode/Libavcodec", "Decode/TexturesSse2", 3.0,
     4.3},
    {"decode against libavcodec + palette, AVX2", "Decode/Libavcodec", "Decode/TexturesAvx2", 3.0,
     4.3},
    {"first load against an SDL2_image loader", "Load/Sdl2Image", "Load/First", 2.5, 4.4},
    {"next load into kept memory, the same", "Load/Sdl2Image", "Load/Next", 5.0, 8.0},
    {"RLE8 against a plain decoder", "Unpack/Rle8Plain", "Unpack/Rle8Ours", 3.5, 4.5},
    {"RLE5 against a plain decoder", "Unpack/Rle5Plain", "Unpack/Rle5Ours", 3.0, 4.0},
    {"LZ5 against a plain decoder", "Unpack/Lz5Plain", "Unpack/Lz5Ours", 1.4, 1.8},
}};

// The first load of the same pictures in other archives.
constexpr std::array<SpeedGoal, 4> kVersionGoals = {{
    {"load of RLE8 against the same as PNG", "Load/Png8/256", "Load/Rle8/256", 3.0, 4.0},
    {"load of LZ5 against the same as PNG", "Load/Png8/32", "Load/Lz5/32", 3.0, 4.0},
    {"load of RLE8 against version 1", "Load/Version1/256", "Load/Rle8/256", 0.67, 1.0},
    {"load of LZ5 against version 1", "Load/Version1/32", "Load/Lz5/32", 0.67, 1.0},
}};

// PNG pictures, kind by kind: libpng does most of the work on both sides.
struct PngGoal {
    const char* what;
    const char* kind;
    double must;
    double aim;
};

constexpr std::array<PngGoal, 3> kPngGoals = {{
    {"PNG with 8 bits against libpng alone", "/bits8", 0.91, 1.0},
    {"PNG with 24 bits against libpng alone", "/bits24", 0.91, 1.0},
    {"PNG with 32 bits against libpng alone", "/bits32", 0.91, 1.0},
}};

// The same for drawing, scene by scene.
constexpr std::array<const char*, 3> kScenes = {"/A", "/B", "/C"};
constexpr const char* kOurDrawing = "Draw/Ours";

struct DrawGoal {
    const char* what;
    const char* peer;
    double must;
    std::array<double, kScenes.size()> aim;
};

constexpr std::array<DrawGoal, 5> kDrawGoals = {{
    {"draw against SDL2 colour-key surfaces", "Draw/Sdl2ColorKey", 3.0, {4.5, 3.6, 4.0}},
    {"draw against SDL2 RLE surfaces", "Draw/Sdl2Rle", 1.0, {1.15, 1.15, 1.15}},
    {"draw against Qt raster", "Draw/QtRaster", 1.4, {1.55, 1.55, 1.55}},
    {"draw against pixman", "Draw/Pixman", 1.9, {2.1, 2.1, 2.1}},
    {"draw against OpenGL on llvmpipe", "Draw/Llvmpipe", 25.0, {31.0, 31.0, 31.0}},
}};

constexpr std::array<SpeedGoal, 2> kBlendGoals = {{
    {"additive draw against SDL2", "Draw/Sdl2Rle", kOurDrawing, 1.0, 1.5},
    {"additive draw against pixman", "Draw/Pixman", kOurDrawing, 1.0, 1.5},
}};

// On large canvases: against one peer, or the best of those that there are.
struct CanvasGoal {
    const char* what;
    std::array<const char*, 3> peers;
    const char* scene;
    double must;
    double aim;
};

constexpr std::array<CanvasGoal, 9> kCanvasGoals = {{
    {"640 x 480, 20 layers, against SDL2 RLE", {"Sdl2Rle"}, "/H", 1.0, 1.3},
    {"640 x 480, 20 layers, against Qt raster", {"QtRaster"}, "/H", 1.6, 2.2},
    {"640 x 480, 20 layers, against pixman", {"Pixman"}, "/H", 2.2, 3.0},
    {"1280 x 720, 20 layers, against SDL2 RLE", {"Sdl2Rle"}, "/W", 1.0, 1.3},
    {"1280 x 720, 20 layers, against Qt raster", {"QtRaster"}, "/W", 1.6, 2.2},
    {"1280 x 720, 20 layers, against pixman", {"Pixman"}, "/W", 2.2, 3.0},
    {"zoomed out, nearest, against the best", {"Sdl2Scaled", "QtRaster", "Pixman"}, "/Z", 1.5, 2.5},
    {"zoomed out, smooth, against the best", {"QtRaster", "Pixman"}, "/S", 1.3, 2.0},
    {"true colour, against the best", {"Sdl2Blend", "QtRaster", "Pixman"}, "/T", 1.0, 1.4},
}};

// What a second processor gains, beside what it gains in copying.
constexpr double kMustOfGain = 0.85;
constexpr double kAimOfGain = 0.95;

// Our time is at most this part of the copying.
constexpr const char* kCopying = "Draw/Memcpy";
constexpr double kMostOfCopying = 0.7;
constexpr double kAimedOfCopying = 0.6;

constexpr double kMostMemory = 1.05;
constexpr double kAimedMemory = 1.02;

const char* Verdict(bool must, bool aim) {
    if (aim) {
        return "aim reached";
    }
    return must ? "reached" : "NOT REACHED";
}

// The median of a row divided by that of another; 0 when one was not measured.
double Quotient(const Medians& medians, const std::string& row, const std::string& by) {
    const auto dividend = medians.find(row);
    const auto divisor = medians.find(by);
    return dividend == medians.end() || divisor == medians.end() || divisor->second <= 0
               ? 0
               : dividend->second / divisor->second;
}

void PrintRatio(const char* what, const char* set, double ratio, double must, double aim) {
    if (ratio <= 0) {
        std::printf("%-46s %-12s %8s\n", what, set, "not measured");
    } else {
        std::printf("%-46s %-12s %7.2fx %6.2fx %6.2fx  %s\n", what, set, ratio, must, aim,
                    Verdict(ratio >= must, ratio >= aim));
    }
}

void PrintSpeed(const SpeedGoal& goal, const Medians& medians, const std::string& set) {
    PrintRatio(goal.what, set.empty() ? "" : set.c_str() + 1,
               Quotient(medians, goal.peer + set, goal.ours + set), goal.must, goal.aim);
}

// For what should be small.
void PrintShare(const char* what, const char* set, double ratio, double most, double aimed,
                const std::string& remark) {
    std::printf("%-46s %-12s %7.3f  %6.2f  %6.2f   %s%s\n", what, set, ratio, most, aimed,
                Verdict(ratio <= most, ratio <= aimed), remark.c_str());
}

void PrintDrawing(const Medians& medians) {
    for (const DrawGoal& goal : kDrawGoals) {
        for (std::size_t scene = 0; scene < kScenes.size(); ++scene) {
            PrintSpeed({goal.what, goal.peer, kOurDrawing, goal.must, goal.aim.at(scene)}, medians,
                       kScenes.at(scene));
        }
    }
    for (const SpeedGoal& goal : kBlendGoals) {
        PrintSpeed(goal, medians, "/D");
    }
    for (const std::string scene : kScenes) {
        const double share = Quotient(medians, kOurDrawing + scene, kCopying + scene);
        if (share > 0) {
            PrintShare("draw / memcpy of the clipped rectangles", scene.c_str() + 1, share,
                       kMostOfCopying, kAimedOfCopying, "");
        }
    }
    if (std::ranges::any_of(medians,
                            [](const auto& row) { return row.first.starts_with("Draw/"); })) {
        PrintScenes();
    }
}

std::string CanvasRow(const char* who, const char* scene, const char* measured) {
    return std::string("Canvas/") + who + scene + measured;
}

void PrintCanvases(const Medians& medians) {
    for (const CanvasGoal& goal : kCanvasGoals) {
        const std::string ours = CanvasRow("Ours", goal.scene, "/process_time");
        double least = 0;
        for (const char* const peer : goal.peers) {
            const double ratio =
                peer == nullptr
                    ? 0
                    : Quotient(medians, CanvasRow(peer, goal.scene, "/process_time"), ours);
            least = least == 0 || (ratio > 0 && ratio < least) ? ratio : least;
        }
        PrintRatio(goal.what, goal.scene + 1, least, goal.must, goal.aim);
    }
    const auto gain = [&](const char* one, const char* several) {
        return Quotient(medians, CanvasRow(one, "/W", "/real_time"),
                        CanvasRow(several, "/W", "/real_time"));
    };
    const double copying = gain("MemcpyByOne", "MemcpyByTwo");
    PrintRatio("gain of all processors / of two in copying", "W",
               copying <= 0 ? 0 : gain("OursByOne", "OursByAll") / copying, kMustOfGain,
               kAimOfGain);
}

// All archives of a set as one stage: a single small one would show the few hundred kilobytes that
// every load needs for its buffers, and little else.
void PrintMemory(const std::vector<std::string>& archives, const char* set) {
    std::size_t textures = 0;
    const std::size_t peak = PeakMemoryOf([&] { return LoadOnce(archives); }, textures);
    if (peak > 0 && textures > 0) {
        std::array<char, 48> remark{};
        std::snprintf(remark.data(), remark.size(), " (%.1f MB of textures)",
                      static_cast<double>(textures) / 1e6);
        PrintShare("peak memory of a load / bytes of its textures", set,
                   static_cast<double>(peak) / static_cast<double>(textures), kMostMemory,
                   kAimedMemory, remark.data());
    }
}

}  // namespace

void PrintGoals(const Medians& medians) {
    std::printf("\n%-46s %-12s %8s %7s %7s\n", "goal", "pictures", "reached", "must", "aim");
    for (const char* set : {"/generated", "/sampleData"}) {
        for (const SpeedGoal& goal : kSpeedGoals) {
            PrintSpeed(goal, medians, set);
        }
    }
    for (const PngGoal& goal : kPngGoals) {
        PrintSpeed({goal.what, "Png/Libpng", "Png/Ours", goal.must, goal.aim}, medians, goal.kind);
    }
    for (const SpeedGoal& goal : kVersionGoals) {
        PrintSpeed(goal, medians, "");
    }
    const double touching =
        Quotient(medians, "Load/TouchByOne/real_time", "Load/TouchByTwo/real_time");
    PrintRatio("gain of two in a load / in reading, touching", "generated",
               touching <= 0
                   ? 0
                   : Quotient(medians, "Load/ByOne/real_time", "Load/ByAll/real_time") / touching,
               kMustOfGain, kAimOfGain);
    PrintMemory(GeneratedArchives(), "generated");
    PrintMemory(SampleDataArchives(), "sampleData");
    PrintDrawing(medians);
    PrintCanvases(medians);
}

}  // namespace scenara::bench
