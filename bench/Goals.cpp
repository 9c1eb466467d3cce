// SPDX-License-Identifier: MIT
#include "Goals.h"

#include <array>
#include <cstdio>
#include <vector>

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

constexpr std::array<SpeedGoal, 6> kSpeedGoals = {{
    {"decode against SDL2_image, plain build", "Decode/Sdl2Image", "Decode/TexturesSse2", 5.0, 7.5},
    {"decode against SDL2_image, AVX2", "Decode/Sdl2Image", "Decode/TexturesAvx2", 7.0, 9.0},
    {"decode against libavcodec + palette, plain", "Decode/Libavcodec", "Decode/TexturesSse2", 3.0,
     4.3},
    {"decode against libavcodec + palette, AVX2", "Decode/Libavcodec", "Decode/TexturesAvx2", 3.0,
     4.3},
    {"first load against an SDL2_image loader", "Load/Sdl2Image", "Load/First", 2.5, 4.4},
    {"next load into kept memory, the same", "Load/Sdl2Image", "Load/Next", 5.0, 8.0},
}};

constexpr double kMostMemory = 1.07;
constexpr double kAimedMemory = 1.02;

const char* Verdict(bool must, bool aim) {
    if (aim) {
        return "aim reached";
    }
    return must ? "reached" : "NOT REACHED";
}

void PrintSpeed(const Medians& medians, const std::string& set) {
    for (const SpeedGoal& goal : kSpeedGoals) {
        const auto peer = medians.find(goal.peer + set);
        const auto ours = medians.find(goal.ours + set);
        if (peer == medians.end() || ours == medians.end() || ours->second <= 0) {
            std::printf("%-46s %-12s %8s\n", goal.what, set.c_str() + 1, "not measured");
        } else {
            const double ratio = peer->second / ours->second;
            std::printf("%-46s %-12s %7.2fx %6.2fx %6.2fx  %s\n", goal.what, set.c_str() + 1, ratio,
                        goal.must, goal.aim, Verdict(ratio >= goal.must, ratio >= goal.aim));
        }
    }
}

// All archives of a set as one stage: a single small one would show the few hundred kilobytes that
// every load needs for its buffers, and little else.
void PrintMemory(const std::vector<std::string>& archives, const char* set) {
    std::size_t textures = 0;
    const std::size_t peak = PeakMemoryOf([&] { return LoadOnce(archives); }, textures);
    if (peak > 0 && textures > 0) {
        const double ratio = static_cast<double>(peak) / static_cast<double>(textures);
        std::printf("%-46s %-12s %7.3f  %6.2f  %6.2f   %s (%.1f MB of textures)\n",
                    "peak memory of a load / bytes of its textures", set, ratio, kMostMemory,
                    kAimedMemory, Verdict(ratio <= kMostMemory, ratio <= kAimedMemory),
                    static_cast<double>(textures) / 1e6);
    }
}

}  // namespace

void PrintGoals(const Medians& medians) {
    std::printf("\n%-46s %-12s %8s %7s %7s\n", "goal", "pictures", "reached", "must", "aim");
    PrintSpeed(medians, "/generated");
    PrintSpeed(medians, "/sampleData");
    PrintMemory(GeneratedArchives(), "generated");
    PrintMemory(SampleDataArchives(), "sampleData");
}

}  // namespace scenara::bench
