// SPDX-License-Identifier: MIT
//
// scenara-bench: every benchmark in one run, and the goal table behind it.
#include <benchmark/benchmark.h>

#include "Goals.h"
#include "support/Medians.h"

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    scenara::bench::MedianReporter reporter(scenara::bench::Measure::CpuTime);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    scenara::bench::PrintGoals(reporter.Found());
    return 0;
}
