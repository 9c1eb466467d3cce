// SPDX-License-Identifier: MIT
//
// Medians: the median of every row that ran, kept while the rows are shown as usual.
#pragma once

#include <cstdio>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

namespace scenara::bench {

// Nanoseconds by a row's name.
using Medians = std::map<std::string, double>;

// CPU time is right where all the work is done here; wall time where others work with us. A row
// that measures by the clock is taken by it in any case.
enum class Measure { CpuTime, WallTime };

class MedianReporter : public benchmark::ConsoleReporter {
public:
    explicit MedianReporter(Measure measure) : ConsoleReporter(OO_Tabular), measure_(measure) {}

    void ReportRuns(const std::vector<Run>& runs) override {
        for (const Run& run : runs) {
            if (run.error_occurred) {
                std::fprintf(stderr, "%s: %s\n", run.benchmark_name().c_str(),
                             run.error_message.c_str());
            } else if (run.aggregate_name == "median") {
                const double unit = benchmark::GetTimeUnitMultiplier(run.time_unit);
                const bool byTheClock =
                    measure_ == Measure::WallTime || run.run_name.time_type == "real_time";
                const double time =
                    byTheClock ? run.GetAdjustedRealTime() : run.GetAdjustedCPUTime();
                medians_[run.run_name.str()] = time / unit * 1e9;
            }
        }
        ConsoleReporter::ReportRuns(runs);
    }

    [[nodiscard]] const Medians& Found() const { return medians_; }

private:
    Measure measure_;
    Medians medians_;
};

}  // namespace scenara::bench
