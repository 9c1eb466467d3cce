// SPDX-License-Identifier: MIT
//
// How evenly the frames of a stage with 20 layers at three times its size come in the real window,
// over a minute at 60 a second, and how many there are when nothing holds them back. The core
// should be free: the program runs at idle priority and gives way to everything.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/frmStage.h"
#include "desktop/DesktopMachine.h"
#include "desktop/LayersStage.h"
#include "desktop/QuietRows.h"
#include "desktop/TimedSink.h"
#include "platform/posix/Instance.h"
#include "platform/posix/ProgramFolder.h"

namespace scenara::bench {
namespace {

// How far frames are from a sixtieth of a second, either way.
void NoteDistances(const std::vector<double>& gaps) {
    constexpr double kSixtieth = 1e6 / 60;
    std::vector<double> distances;
    for (const double gap : gaps) {
        distances.push_back(std::abs(gap - kSixtieth) / 1000);
    }
    std::ranges::sort(distances);
    NotedFigures()["Pacing/median"] = distances[distances.size() / 2];
    NotedFigures()["Pacing/p99"] = distances[distances.size() * 99 / 100];
}

void Run(benchmark::State& state, Integer limit, std::size_t frames) {
    const TemporaryFolder folder;
    const std::string stage = WriteLayersAndSettings(folder.Path());
    TimedSink sink;
    Instance instance({}, folder.Path());
    DesktopMachine machine(folder.Path(), instance, &sink);
    sink.shownBy = &machine.Desktop().Picture();
    sink.Expect(frames);
    frmStage program(machine.Pieces(), machine.form);
    machine.Desktop().SetEvents(&program);
    program.Form_Load();
    program.Show().Loop().FpsLimit = limit;
    machine.Desktop().Show();
    program.Show().Which.CurrentStageFile = stage;
    sink.full = [&] { program.QuitRequested = kTrue; };
    for (auto _ : state) {
        program.RunStage();
    }
    const std::vector<double> gaps = sink.Gaps();
    if (gaps.empty() || !IsThreeTimes(machine.form)) {
        state.SkipWithError("no stage was shown at three times its size");
        return;
    }
    const auto at = [&](double part) {
        return gaps[static_cast<std::size_t>(part * static_cast<double>(gaps.size() - 1))];
    };
    state.counters["frames"] = static_cast<double>(gaps.size());
    state.counters["median_us"] = at(0.5);
    state.counters["p1_us"] = at(0.01);
    state.counters["p99_us"] = at(0.99);
    state.counters["max_us"] = gaps.back();
    state.counters["per_second"] = 1e6 / at(0.5);
    if (limit == 60) {
        NoteDistances(gaps);
    }
}

constexpr std::size_t kMinute = std::size_t{60} * 60;
constexpr std::size_t kUnpacedFrames = 20000;

BENCHMARK_CAPTURE(Run, limit60, Integer{60}, kMinute)
    ->Name("Loop/60 a second, a minute")
    ->Iterations(1)
    ->Repetitions(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);
BENCHMARK_CAPTURE(Run, unlimited, Integer{0}, kUnpacedFrames)
    ->Name("Loop/unpaced")
    ->Iterations(1)
    ->Repetitions(1)
    ->UseRealTime()
    ->Unit(benchmark::kSecond);

}  // namespace
}  // namespace scenara::bench
