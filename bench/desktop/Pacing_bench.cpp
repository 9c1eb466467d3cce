// SPDX-License-Identifier: MIT
//
// How evenly the frames of a stage come in the real window, over a minute at 60 a second, and how
// many there are when nothing holds them back. The core should be free: the program runs at idle
// priority and gives way to everything.
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <fstream>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/frmStage.h"
#include "base/Path.h"
#include "desktop/DesktopMachine.h"
#include "platform/posix/Instance.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/soft/PictureSink.h"

namespace scenara::bench {
namespace {

using Timer = std::chrono::steady_clock;

constexpr const char* kStage = "nightexpress.def";

// Notes when each picture is handed over.
class TimedSink : public PictureSink {
public:
    HRESULT Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) override {
        times_.push_back(Timer::now());
        const HRESULT result = shownBy->Show(size, pixels);
        if (times_.size() == times_.capacity()) {
            full();
        }
        return result;
    }

    void Expect(std::size_t frames) {
        times_.clear();
        times_.reserve(frames);
    }
    // Microseconds from each picture to the next, sorted.
    [[nodiscard]] std::vector<double> Gaps() const {
        std::vector<double> gaps;
        for (std::size_t i = 1; i < times_.size(); ++i) {
            gaps.push_back(
                std::chrono::duration<double, std::micro>(times_[i] - times_[i - 1]).count());
        }
        std::ranges::sort(gaps);
        return gaps;
    }

    PictureSink* shownBy = nullptr;
    std::function<void()> full;

private:
    std::vector<Timer::time_point> times_;
};

void Run(benchmark::State& state, Integer limit, std::size_t frames) {
    const TemporaryFolder folder;
    const std::string mugen = std::string(SCENARA_BUNDLED_STAGES) + "/";
    // Without settings the program would ask for the engine folder.
    std::ofstream(folder.Path() + "QX.CFG") << "MugeDir = " << mugen << "\r\nBGMusic = False\r\n";
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
    program.Show().Which.CurrentStageFile = mugen + "stages/" + kStage;
    sink.full = [&] { program.QuitRequested = kTrue; };
    for (auto _ : state) {
        program.RunStage();
    }
    const std::vector<double> gaps = sink.Gaps();
    if (gaps.empty()) {
        state.SkipWithError("no stage was shown");
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
}

constexpr std::size_t kMinute = 60 * 60;
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
