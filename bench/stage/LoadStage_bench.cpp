// SPDX-License-Identifier: MIT
//
// Stages from the files into memory: a definition of tens of thousands of lines and thousands of
// elements, every line offered to every key of its section, without an archive; and one of a few
// lines with an archive, at single and at double detail.
#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <string>

#include <benchmark/benchmark.h>

#include "platform/View.h"
#include "platform/headless/HeadlessMessages.h"
#include "platform/headless/HeadlessWindow.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/ProgramFolder.h"
#include "platform/soft/SoftDevice.h"
#include "stage/LoadStage.h"
#include "support/ArchiveFiles.h"

namespace scenara::bench {
namespace {

constexpr int kElements = 5000;
constexpr int kActions = 2000;

std::string LargeDefinition() {
    std::string text = "[Info]\r\nname = \"large\"\r\n[Camera]\r\nstartx = 0\r\n";
    for (int i = 0; i < kElements; ++i) {
        const std::string n = std::to_string(i);
        text += "\r\n[BG Element " + n + "]\r\ntype = normal ; one of many\r\nspriteno = " + n +
                ", 0\r\nstart = -12, " + n + "\r\ndelta = .5, .75\r\nmask = 1\r\nlayerno = 0\r\n" +
                "tile = 1, 0\r\nvelocity = .25, 0\r\n";
    }
    for (int i = 0; i < kActions; ++i) {
        text += "\r\n[Begin Action " + std::to_string(i) + "]\r\n0,0, 0,0, 7\r\n0,1, 0,0, 7\r\n";
    }
    return text;
}

void WriteDefinition(PosixFiles& files, const std::string& path, const std::string& text) {
    const auto file = files.OpenForWriting(path);
    file->Write(text);
    file->Close();
}

// Loads the stage again and again: into the memory that the one before left. `isWhole` looks at it.
template <typename IsWhole>
void LoadAgain(benchmark::State& state, PosixFiles& files, std::string path,
               const std::string& folder, IsWhole isWhole) {
    SoftDevice device;
    const ViewOptions view;
    for ([[maybe_unused]] const auto iteration : state) {
        StageModel model;
        HeadlessMessages messages;
        HeadlessWindow window;
        if (!LoadStage(model, path, {files, messages, window, device, view, folder, {}}) ||
            !isWhole(model)) {
            throw std::runtime_error("the stage did not load");
        }
    }
}

void LoadLargeDefinition(benchmark::State& state) {
    const TemporaryFolder folder;
    PosixFiles files(folder.Path());
    const std::string path = folder.Path() + "large.def";
    const std::string text = LargeDefinition();
    WriteDefinition(files, path, text);
    LoadAgain(state, files, path, folder.Path(), [](const StageModel& model) {
        return model.ElementCount == kElements && model.ActionCount == kActions;
    });
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations()) *
                            static_cast<std::int64_t>(text.size()));
    state.counters["lines"] = static_cast<double>(std::count(text.begin(), text.end(), '\n'));
}

void LoadWithArchive(benchmark::State& state, const char* detail) {
    const TemporaryFolder folder;
    PosixFiles files(folder.Path());
    std::filesystem::copy_file(GeneratedArchives().front(), folder.Path() + "stage.sff");
    const std::string path = folder.Path() + "stage.def";
    WriteDefinition(
        files, path,
        std::string("[StageInfo]\r\n") + detail +
            "[BGdef]\r\nspr = stage.sff\r\n[BG]\r\ntype = normal\r\nspriteno = 0,0\r\n");
    LoadAgain(state, files, path, folder.Path(),
              [](const StageModel& model) { return model.SpriteCount != 0; });
}

// NOLINTBEGIN(cppcoreguidelines-avoid-non-const-global-variables): how the library lists rows.
BENCHMARK(LoadLargeDefinition)->Name("Definition/large")->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadWithArchive, single, "")
    ->Name("Stage/single detail")
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadWithArchive, twice, "hires = 1\r\n")
    ->Name("Stage/double detail")
    ->Unit(benchmark::kMillisecond);
// NOLINTEND(cppcoreguidelines-avoid-non-const-global-variables)

}  // namespace
}  // namespace scenara::bench
