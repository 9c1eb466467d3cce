// SPDX-License-Identifier: MIT
//
// scenara-bench: every benchmark in one run, and the goal table behind it.
#include <cstdio>
#include <vector>

#include <benchmark/benchmark.h>

#include "Goals.h"

namespace {

// Shows rows as usual and keeps their medians.
class MedianReporter : public benchmark::ConsoleReporter {
public:
    MedianReporter() : ConsoleReporter(OO_Tabular) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
            } else if (run.aggregate_name == "median") {
                const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
                medians_[run.run_name.str()] = run.GetAdjustedCPUTime() / unit * 1e9;
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    [[nodiscard]] const scenara::bench::Medians& Found() const { return medians_; }

private:
    scenara::bench::Medians medians_;
};

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) {
        return 2;
    }
    MedianReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    scenara::bench::PrintGoals(reporter.Found());
    return 0;
}
