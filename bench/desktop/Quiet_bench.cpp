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
#include <cstddef>
#include <filesystem>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>
#include <sys/resource.h>

#include "app/frmStage.h"
#include "desktop/DesktopMachine.h"
#include "desktop/QuietRows.h"
#include "desktop/TimedSink.h"
#include "platform/posix/Instance.h"
#include "platform/posix/ProgramFolder.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "support/StageArt.h"

namespace scenara::bench {
namespace {

constexpr int kLayers = 20;
constexpr int kSettleMilliseconds = 2000;
constexpr int kMeasureMilliseconds = 5000;

// A backdrop and layers that drift, wider than the view. The folder is the engine's.
std::string WriteStage(const std::string& engine) {
    const std::string folder = engine + "stages/";
    std::filesystem::create_directory(folder);
    std::vector<samplemaker::Sff1Subfile> subfiles;
    const auto add = [&](const samplemaker::IndexedPicture& picture) {
        samplemaker::Sff1Subfile subfile;
        subfile.image = static_cast<std::int16_t>(subfiles.size());
        subfile.axisX = static_cast<std::int16_t>(picture.width / 2);
        subfile.data = samplemaker::WritePcx(picture);
        subfiles.push_back(std::move(subfile));
    };
    std::ofstream stage(folder + "layers.def");
    stage << "[Info]\nname = layers\n[Camera]\n[BGdef]\nspr = stages/layers.sff\n"
             "[BG 0]\ntype = normal\nspriteno = 0,0\n";
    add(DrawBackdrop(960, 240, 1));
    for (int layer = 1; layer <= kLayers; ++layer) {
        add(DrawLayer(960, 240, static_cast<std::uint32_t>(layer + 1)));
        stage << "[BG " << layer << "]\ntype = normal\nspriteno = 0," << layer
              << "\nmask = 1\ntile = 1\nvelocity = 0." << layer + 1 << "\n";
    }
    const std::vector<std::byte> bytes = samplemaker::WriteSff1(subfiles);
    std::ofstream(folder + "layers.sff", std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
    return folder + "layers.def";
}

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
    const std::string stage = WriteStage(folder.Path());
    std::ofstream(folder.Path() + "QX.CFG")
        << "MugeDir = " << folder.Path() << "\r\nBGMusic = False\r\n";
    // The picture's box is smaller than the window by the bar of menus; that the picture is three
    // times its size is all that counts.
    std::ofstream(folder.Path() + "Scenara.ini")
        << "WholeMultiplesOnly = True\r\nWindowWidth = 1100\r\nWindowHeight = 860\r\n";
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
    const bool isOfSize = machine.form.picDraw.width == 1100 &&
                          machine.form.picDraw.height >= 720 && machine.form.picDraw.height < 960;
    manager.terminate();
    manager.waitForFinished();
    if (share < 0 || !isOfSize) {
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
