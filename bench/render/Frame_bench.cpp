// SPDX-License-Identifier: MIT
//
// A whole frame of each stage at hand: its clocks, placing and drawing all elements, both passes.
// One iteration is one frame, the stage goes on from one to the next. There is nobody to compare
// it with; it shows what a frame has besides blits.
#include <stdexcept>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "platform/View.h"
#include "platform/png/LibPngPictures.h"
#include "platform/posix/PosixFiles.h"
#include "render/StageInView.h"
#include "stage/LoadStage.h"
#include "support/StageFolders.h"

namespace scenara::bench {
namespace {

void DrawFrames(benchmark::State& state, const std::string& folder, const std::string& definition) {
    try {
        const ViewOptions view;
        StageInView stage(
            view, [&](StageModel& model, Direct3DDevice8& device, HeadlessMessages& messages) {
                PosixFiles files("");
                HeadlessWindow window;
                const LibPngPictures png;
                std::string path = folder + "stages/" + definition;
                if (!LoadStage(model, path,
                               {files, messages, window, device, view, folder, {}, &png})) {
                    throw std::runtime_error(messages.Recorded().back().text);
                }
            });
        for ([[maybe_unused]] const auto iteration : state) {
            stage.Draw();
        }
        state.counters["elements"] = static_cast<double>(stage.ElementCount());
    } catch (const std::exception& error) {
        state.SkipWithError(error.what());
    }
}

bool ListStages() {
    for (const std::string& folder : {BundledFolder(), SampleDataFolder()}) {
        for (const std::string& name : PosixFiles("").List(folder + "stages/", ".def")) {
            benchmark::RegisterBenchmark(
                ("Frame/" + name.substr(0, name.rfind('.'))).c_str(),
                [folder, name](benchmark::State& state) { DrawFrames(state, folder, name); })
                ->Unit(benchmark::kMicrosecond);
        }
    }
    return true;
}

[[maybe_unused]] const bool kListed = ListStages();

}  // namespace
}  // namespace scenara::bench
