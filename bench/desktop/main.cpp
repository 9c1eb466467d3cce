// SPDX-License-Identifier: MIT
//
// scenara-bench-window: the benchmarks of the real window, and their goal.
#include <QApplication>
#include <cstdio>

#include <benchmark/benchmark.h>

#include "platform/qt/Display.h"
#include "support/Medians.h"

namespace {

constexpr double kMust = 1.15;
constexpr double kAim = 1.7;

void PrintGoal(const scenara::bench::Medians& medians) {
    const auto peer = medians.find("Present/PainterStretch/real_time");
    const auto ours = medians.find("Present/Ours/real_time");
    if (peer == medians.end() || ours == medians.end()) {
        return;
    }
    const double ratio = peer->second / ours->second;
    std::printf(
        "\npresent at 3x against a widget with painter stretch: %.2fx (must %.2fx, aim "
        "%.2fx): %s\n",
        ratio, kMust, kAim,
        ratio >= kAim    ? "aim reached"
        : ratio >= kMust ? "reached"
                         : "NOT REACHED");
}

}  // namespace

int main(int argc, char** argv) {
    if (!scenara::HasDisplay()) {
        std::fprintf(stderr, "scenara-bench-window: there is no display\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    scenara::bench::MedianReporter reporter(scenara::bench::Measure::WallTime);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    PrintGoal(reporter.Found());
    return 0;
}
