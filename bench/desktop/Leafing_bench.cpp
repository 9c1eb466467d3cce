// SPDX-License-Identifier: MIT
//
// Leafing through a collection in the real window: from the press of Down in the list to the first
// picture of the next stage, whose archive has 4 MB.
#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <algorithm>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

#include "app/frmStage.h"
#include "desktop/DesktopMachine.h"
#include "desktop/QuietRows.h"
#include "platform/posix/Instance.h"
#include "platform/posix/ProgramFolder.h"
#include "samplemaker/PcxWriter.h"
#include "samplemaker/Sff1Writer.h"
#include "support/StageArt.h"

namespace scenara::bench {
namespace {

using Timer = std::chrono::steady_clock;

constexpr int kStages = 60;
constexpr std::size_t kArchiveSize = 4'000'000;

std::vector<std::byte> ArchiveOfFourMegabytes() {
    std::vector<samplemaker::Sff1Subfile> subfiles;
    std::size_t size = 0;
    while (size < kArchiveSize) {
        const auto number = static_cast<std::uint32_t>(subfiles.size());
        const auto picture =
            number == 0 ? DrawBackdrop(960, 240, 1) : DrawLayer(480, 240, number + 1);
        samplemaker::Sff1Subfile subfile;
        subfile.image = static_cast<std::int16_t>(number);
        subfile.axisX = static_cast<std::int16_t>(picture.width / 2);
        subfile.data = samplemaker::WritePcx(picture);
        size += subfile.data.size();
        subfiles.push_back(std::move(subfile));
    }
    return samplemaker::WriteSff1(subfiles);
}

void WriteCollection(const std::string& folder) {
    const std::string stages = folder + "stages/";
    std::filesystem::create_directory(stages);
    const std::vector<std::byte> archive = ArchiveOfFourMegabytes();
    for (int i = 0; i < kStages; ++i) {
        const std::string name = "stage" + std::to_string(i);
        std::ofstream(stages + name + ".sff", std::ios::binary)
            .write(reinterpret_cast<const char*>(archive.data()),
                   static_cast<std::streamsize>(archive.size()));
        std::ofstream(stages + name + ".def")
            << "[Info]\nname = " << name << "\n[Camera]\n[BGdef]\nspr = stages/" << name
            << ".sff\n[BG 0]\ntype = normal\nspriteno = 0,0\n"
               "[BG 1]\ntype = normal\nspriteno = 0,1\nmask = 1\ntile = 1\n";
    }
    std::ofstream(folder + "QX.CFG")
        << "MugeDir = " << folder << "\r\nBGMusic = False\r\nStageList = 255\r\n";
}

// Presses Down as soon as a stage has been shown, and notes when the next one is.
class LeafingSink : public PictureSink {
public:
    HRESULT Show(const CanvasSize& size, std::span<const std::uint32_t> pixels) override {
        const HRESULT result = shownBy->Show(size, pixels);
        if (shown() != shownBefore_) {
            shownBefore_ = shown();
            if (pressed_) {
                milliseconds.push_back(
                    std::chrono::duration<double, std::milli>(Timer::now() - *pressed_).count());
            }
            pressed_ = Timer::now();
            press();
        }
        return result;
    }

    PictureSink* shownBy = nullptr;
    std::function<std::string()> shown;
    std::function<void()> press;
    std::vector<double> milliseconds;

private:
    std::string shownBefore_;
    std::optional<Timer::time_point> pressed_;
};

void Leaf(benchmark::State& state) {
    const TemporaryFolder folder;
    WriteCollection(folder.Path());
    LeafingSink sink;
    Instance instance({}, folder.Path());
    DesktopMachine machine(folder.Path(), instance, &sink);
    frmStage program(machine.Pieces(), machine.form);
    machine.Desktop().SetEvents(&program);
    program.Form_Load();
    machine.Desktop().Show();
    auto* const list = machine.Desktop().findChild<QListView*>();
    sink.shownBy = &machine.Desktop().Picture();
    sink.shown = [&] { return program.Show().Which.shown; };
    sink.press = [&] {
        if (sink.milliseconds.size() + 1 >= kStages) {
            program.QuitRequested = kTrue;
            return;
        }
        QApplication::postEvent(list,
                                new QKeyEvent(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier));
    };
    for (auto _ : state) {
        program.lstStages_Click(0);
    }
    std::vector<double>& all = sink.milliseconds;
    if (all.size() + 1 < kStages) {
        state.SkipWithError("not all stages were shown");
        return;
    }
    std::ranges::sort(all);
    NotedFigures()["Leafing/median"] = all[all.size() / 2];
    NotedFigures()["Leafing/slowest"] = all.back();
    state.counters["median_ms"] = all[all.size() / 2];
    state.counters["max_ms"] = all.back();
}

BENCHMARK(Leaf)
    ->Name("Leafing/4 MB stages")
    ->Iterations(1)
    ->Repetitions(1)
    ->UseRealTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace scenara::bench
