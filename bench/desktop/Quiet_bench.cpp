// SPDX-License-Identifier: MIT
//
// What the real window takes of a processor over some seconds of a stage with 20 layers at three
// times its size: while it is shown, and where nothing of it moves or is seen.
#include <QApplication>
#include <QProcess>
#include <QScreen>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include "app/frmStage.h"
#include "desktop/DesktopMachine.h"
#include "desktop/LayersStage.h"
#include "desktop/QuietRows.h"
#include "desktop/TimedSink.h"
#include "platform/posix/Instance.h"
#include "platform/posix/ProgramFolder.h"

namespace scenara::bench {
namespace {

constexpr int kSettleMilliseconds = 2000;
constexpr int kMeasureMilliseconds = 5000;

// Of all threads, in seconds.
double CpuTime() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

enum class Way { Shown, Paused, Minimised, Covered };

void Bring(Way way, frmStage& program, MainWindow& window, QWidget& cover) {
    switch (way) {
        case Way::Shown: break;
        case Way::Paused: program.Menu_Click(Menu::mnuPause); break;
        case Way::Minimised: window.showMinimized(); break;
        case Way::Covered:
            cover.setWindowFlags(Qt::BypassWindowManagerHint);
            cover.setGeometry(window.screen()->geometry());
            cover.show();
            cover.raise();
            break;
    }
}

void Quiet(benchmark::State& state, const char* name, Way way) {
    const TemporaryFolder folder;
    const std::string stage = WriteLayersAndSettings(folder.Path());
    // Without one nothing minimises a window. Where there is one, this one ends at once.
    QProcess manager;
    manager.start("openbox", {});
    manager.waitForStarted();
    TimedSink sink;
    Instance instance({}, folder.Path());
    DesktopMachine machine(folder.Path(), instance, &sink);
    sink.shownBy = &machine.Desktop().Picture();
    sink.Expect(1'000'000);
    frmStage program(machine.Pieces(), machine.form);
    MainWindow& window = machine.Desktop();
    window.SetEvents(&program);
    program.Form_Load();
    window.Show();
    program.Show().Which.CurrentStageFile = stage;
    QWidget cover;
    using Timer = std::chrono::steady_clock;
    double cpu = 0;
    Timer::time_point begun;
    QTimer::singleShot(kSettleMilliseconds / 2, &window,
                       [&] { Bring(way, program, window, cover); });
    QTimer::singleShot(kSettleMilliseconds, &window, [&] {
        cpu = CpuTime();
        begun = Timer::now();
    });
    double share = -1;
    QTimer::singleShot(kSettleMilliseconds + kMeasureMilliseconds, &window, [&] {
        share =
            100 * (CpuTime() - cpu) / std::chrono::duration<double>(Timer::now() - begun).count();
        program.QuitRequested = kTrue;
    });
    for (auto _ : state) {
        program.RunStage();
    }
    manager.terminate();
    manager.waitForFinished();
    if (share < 0 || !IsThreeTimes(machine.form)) {
        state.SkipWithError("no stage was shown at three times its size");
        return;
    }
    state.counters["percent"] = share;
    state.counters["pictures"] = static_cast<double>(sink.Gaps().size() + 1);
    NotedFigures()[name] = share;
}

const bool kQuietRegistered = [] {
    for (const auto& [name, way] :
         {std::pair("Quiet/60 a second", Way::Shown), std::pair("Quiet/paused", Way::Paused),
          std::pair("Quiet/minimised", Way::Minimised), std::pair("Quiet/covered", Way::Covered)}) {
        benchmark::RegisterBenchmark(
            name, [name = name, way = way](benchmark::State& state) { Quiet(state, name, way); })
            ->Iterations(1)
            ->Repetitions(1)
            ->UseRealTime()
            ->Unit(benchmark::kSecond);
    }
    return true;
}();

}  // namespace
}  // namespace scenara::bench
