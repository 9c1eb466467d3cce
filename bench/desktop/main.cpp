// SPDX-License-Identifier: MIT
//
// scenara-bench-window: the benchmarks of the real window, and their goals.
#include <QApplication>
#include <cstdio>
#include <string>

#include <benchmark/benchmark.h>

#include "desktop/PresentRows.h"
#include "desktop/QuietRows.h"
#include "platform/qt/Display.h"
#include "support/Medians.h"

namespace {

using scenara::bench::PresentRow;

// 0: it was not measured.
double Median(const scenara::bench::Medians& medians, const char* rows, const PresentRow& row) {
    const auto found = medians.find(std::string(rows) + row.what + "/process_time/real_time");
    return found == medians.end() ? 0 : found->second;
}

void PrintGoals(const scenara::bench::Medians& medians) {
    std::printf("\n%-46s %8s %7s %7s\n", "present against a widget with painter stretch", "reached",
                "must", "aim");
    for (const PresentRow& row : scenara::bench::kPresentRows) {
        const double peer = Median(medians, scenara::bench::kPainterRows, row);
        const double ours = Median(medians, scenara::bench::kOurRows, row);
        if (peer <= 0 || ours <= 0) {
            std::printf("%-46s not measured\n", row.what);
            continue;
        }
        const double ratio = peer / ours;
        std::printf("%-46s %7.2fx %6.2fx %6.2fx  %s\n", row.what, ratio, row.must, row.aim,
                    ratio >= row.aim    ? "aim reached"
                    : ratio >= row.must ? "reached"
                                        : "NOT REACHED");
    }
}

void PrintQuietGoals() {
    std::printf("\n%-46s %11s %7s %7s\n", "quiet window", "reached", "must", "aim");
    const auto& noted = scenara::bench::NotedFigures();
    for (const scenara::bench::QuietRow& row : scenara::bench::kQuietRows) {
        const auto found = noted.find(row.name);
        if (found == noted.end()) {
            std::printf("%-46s not measured\n", row.what);
            continue;
        }
        std::printf("%-46s %8.3f %-2s %7.2f %7.2f  %s\n", row.what, found->second, row.unit,
                    row.must, row.aim,
                    found->second <= row.aim    ? "aim reached"
                    : found->second <= row.must ? "reached"
                                                : "NOT REACHED");
    }
    for (const scenara::bench::StartRow& row : scenara::bench::kStartRows) {
        const auto start = noted.find(scenara::bench::kProgramStart);
        const auto peer = noted.find(row.peer);
        if (start == noted.end() || peer == noted.end()) {
            std::printf("%-46s not measured\n", row.what);
            continue;
        }
        const double times = start->second / peer->second;
        std::printf("%-46s %8.2f x  %7.2f %7.2f  %s (%.0f and %.0f ms)\n", row.what, times,
                    row.must, row.aim,
                    times <= row.aim    ? "aim reached"
                    : times <= row.must ? "reached"
                                        : "NOT REACHED",
                    start->second, peer->second);
    }
}

}  // namespace

std::map<std::string, double>& scenara::bench::NotedFigures() {
    static std::map<std::string, double> figures;
    return figures;
}

int main(int argc, char** argv) {
    if (!scenara::HasDisplay({})) {
        std::fprintf(stderr, "scenara-bench-window: there is no display\n");
        return 1;
    }
    benchmark::Initialize(&argc, argv);
    const QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    scenara::bench::MedianReporter reporter(scenara::bench::Measure::WallTime);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    PrintGoals(reporter.Found());
    PrintQuietGoals();
    return 0;
}
