// SPDX-License-Identifier: MIT
//
// What the program takes of a processor while it shows a stage or has it shown by nobody, how
// evenly frames come, how soon another stage is there and how soon the program: the figures that a
// run noted, for the goals.
#pragma once

#include <map>
#include <string>

namespace scenara::bench {

struct QuietRow {
    const char* what;
    const char* name;  // under which it is noted
    const char* unit;
    double must;  // at most
    double aim;
};

inline constexpr QuietRow kQuietRows[] = {
    {"CPU at 60 a second, 20 layers, 3x", "Quiet/60 a second", "%", 15, 6},
    {"CPU while paused", "Quiet/paused", "%", 1, 0.2},
    {"CPU while minimised", "Quiet/minimised", "%", 1, 0.2},
    {"CPU while covered", "Quiet/covered", "%", 1, 0.2},
    {"median frame off 1/60 s, 20 layers, 3x", "Pacing/median", "ms", 0.1, 0.05},
    {"p99 of frames off 1/60 s, 20 layers, 3x", "Pacing/p99", "ms", 1, 0.3},
    {"key to next stage, 4 MB, median of 60", "Leafing/median", "ms", 50, 25},
    {"key to next stage, 4 MB, slowest of 60", "Leafing/slowest", "ms", 50, 25},
};

// From the start of a process to its first picture. A window without any text reads no fonts,
// which take a third of what a window with a menu takes: so there are two of them.
struct StartRow {
    const char* what;
    const char* peer;  // under which its milliseconds are noted
    double must;       // at most so many times the peer's
    double aim;
};

inline constexpr const char* kProgramStart = "Start/program";
inline constexpr const char* kBareStart = "Start/bare window";
inline constexpr const char* kMenuStart = "Start/window with a menu";
inline constexpr StartRow kStartRows[] = {
    {"start to title picture / a bare window's", kBareStart, 1.5, 1.2},
    {"start to title picture / one's with a menu", kMenuStart, 1.5, 1.2},
};

// By their names; those that did not run are missing.
[[nodiscard]] std::map<std::string, double>& NotedFigures();

}  // namespace scenara::bench
